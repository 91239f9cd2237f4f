// Pass 2 of the classifier: the line eater, the repeated prompt and Block Mode.
#include "session/LineClassifier.h"

#include "common/modChess.h"

void LineClassifier::output(std::string& line) {
    if (dropped(line)) return;
    SuppressCount = -SuppressCount;
    skipRepeatedPrompt(line);
    if (!line.empty()) insertOrBlock(line);
}

bool LineClassifier::dropped(const std::string& line) {
    if (lines.verbose) SuppressCount = 0;
    if (SuppressCount > 100 && line.size() > modChess.gPrompt.size() + 2) SuppressCount = 0;
    if (SuppressCount > 0) {
        --SuppressCount;
        return true;
    }
    return modChess.gConsoleQuiet;
}

// A run of bare prompts is printed once.
void LineClassifier::skipRepeatedPrompt(std::string& line) {
    if (PromptShown) {
        if (line == modChess.gPrompt) {
            line.clear();
        } else {
            PromptShown = false;
        }
    }
    if (line == modChess.gPrompt) PromptShown = true;
}

void LineClassifier::insertOrBlock(const std::string& line) {
    if (menu.mnuBlocked) {
        modChess.BlockedText += line;
    } else if (modChess.BlockedText.empty()) {
        hooks.insert(line);
    } else {
        hooks.insert(modChess.BlockedText + line);
        modChess.BlockedText.clear();
    }
}
