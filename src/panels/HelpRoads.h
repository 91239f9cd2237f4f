// What the help panel needs of the rest of the program.
#pragma once

#include "panels/HelpCapture.h"
#include "panels/PanelRoads.h"

// Given by whoever opens the panel; outlives it, and each call that it makes. Every member must be given.
struct HelpRoads {
    PanelRoads panel;
    // The session's.
    HelpCapture& capture;
};
