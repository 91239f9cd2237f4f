// How changes of the user go to the server.
#include "panels/ChangeRoad.h"

bool sendEach(const std::vector<std::string>& lines, const ChangeRoad& road) {
    for (const std::string& line : lines) {
        if (!road.send(line)) return false;
        road.pause();
    }
    return true;
}
