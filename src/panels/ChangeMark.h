// The mark of something that the user has changed.
#pragma once

class QWidget;

// Draws the words of `drawn` in red, or in the colour of the desktop's texts; assistive tools read "changed" of `told`.
// In a dark surrounding the red is a lighter one. Call it again when the palette has changed.
void showMark(QWidget* drawn, QWidget* told, bool changed);
