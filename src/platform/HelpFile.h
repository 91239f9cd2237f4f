// The program's help file on the screen.
#pragma once

class QWidget;

// Shows "Brightrank.hlp", a text in Markdown, in a window of its own that closes with `parent`: the file in the current
// directory, else the program's own manual. Shown already, it comes to the front. A box tells when there is neither.
void showHelpFile(QWidget* parent);
