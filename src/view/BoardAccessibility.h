// What assistive tools are told of a board.
#pragma once

// From now on a BoardView is described to assistive tools by its position in words. Further calls do nothing.
void installBoardAccessibility();
