// The desktop's file dialogs for game files.
#include "records/FileDialogs.h"

#include "common/modChess.h"
#include "platform/Boxes.h"

#include <filesystem>

namespace {

const char* filterOf(bool pgn) { return pgn ? "PGN Files (*.pgn)" : "Game Files (*.gam)"; }

std::string& folderOf(bool pgn) { return pgn ? modChess.PGNPath : modChess.GamePath; }

} // namespace

std::string zLoadFile(QWidget* parent, bool pgn) {
    const auto chosen = boxes.fileOpen(parent, "Open Game File", folderOf(pgn), filterOf(pgn));
    if (!chosen) return {};
    folderOf(pgn) = std::filesystem::path(*chosen).parent_path().string();
    return *chosen;
}

std::string zSaveFile(QWidget* parent, bool pgn) {
    return boxes.fileSave(parent, "Save Game", folderOf(pgn), filterOf(pgn)).value_or(std::string());
}
