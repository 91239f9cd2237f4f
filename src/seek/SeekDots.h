// The dots of the seek graph for assistive tools: a list whose entries are the ads.
#pragma once

#include <QString>

#include <functional>

class SeekPlot;

// From now on assistive tools find `plot` as a list by this name, with an entry for each dot in the order of the table.
// Once, before they have heard of it.
void describeDots(SeekPlot* plot, const QString& name);

// Tells them that this entry is the chosen one. A test puts its own in.
extern std::function<void(SeekPlot* plot, int dot)> announceDot;
