// Texts of others in tool tips: they stay on the screen, whatever their length.
#pragma once

#include <QString>

// `text` for a tool tip: its first 500 characters, in lines of which the screen holds each; one without a blank is
// broken within its word.
QString tipText(const QString& text);
