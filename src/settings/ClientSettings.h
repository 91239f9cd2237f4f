// The settings that the client window itself carries at run time; the program-wide ones are in modChess.
#pragma once

#include "common/FixedArray.h"

#include <cstdint>
#include <string>

// Owned by frmChessClient, which copies its geometry in before it saves. The start values are those of a window that
// has read nothing; the window puts its designed size into `Width` and `Height` before it reads.
struct ClientSettings {
    float Left = 0; // twips, as are the three below
    float Top = 0;
    float Width = 0;
    float Height = 0;
    std::string Handle;
    std::string Password;            // in clear, as the user typed it
    FixedArray<std::string, 9> Tell; // ToolTipText of cmdTell(0) to cmdTell(9)
    bool mnuSeekGrf = false;         // the ticks of the menu items of these names
    bool mnuAutoCon = false;
    bool mnuAutoLogon = false;
    bool mnuUseTS = true;
    bool mnuXP = false;
    std::int16_t LastServer = 0; // index of the server profile for Auto-Connect

    friend bool operator==(const ClientSettings&, const ClientSettings&) = default;
};
