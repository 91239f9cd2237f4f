// Whose files and folders are: what another user of the machine could have put somewhere is not run.
#include "platform/OwnFiles.h"

#include <filesystem>

#include <sys/stat.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

bool isOurs(const struct stat& status) { return status.st_uid == ::geteuid() || status.st_uid == 0; }

// A link's own mode says nothing. In a sticky folder others cannot touch what is ours.
bool strangersWrite(const struct stat& status) {
    const bool sticky = S_ISDIR(status.st_mode) && (status.st_mode & S_ISVTX) != 0;
    return !S_ISLNK(status.st_mode) && (status.st_mode & S_IWOTH) != 0 && !sticky;
}

std::optional<std::string> handOn(const fs::path& path) {
    struct stat status {};
    if (::lstat(path.c_str(), &status) != 0) return path.string() + " cannot be looked at";
    if (!isOurs(status)) return path.string() + " belongs to another user";
    if (strangersWrite(status)) return path.string() + " can be written by everybody";
    return std::nullopt;
}

} // namespace

std::optional<std::string> strangersHand(const std::string& path) {
    std::error_code failed;
    const fs::path named = fs::absolute(path, failed);
    const fs::path real = fs::canonical(named, failed);
    if (failed) return path + " cannot be looked at";
    for (const fs::path& each : {named, fs::canonical(named.parent_path(), failed), real, real.parent_path()}) {
        if (auto reason = handOn(each)) return reason;
    }
    return std::nullopt;
}

bool goToOwnFolder(const std::string& path) {
    std::error_code failed;
    fs::create_directories(path, failed);
    return !failed && ::chmod(path.c_str(), S_IRWXU) == 0 && // fails on a folder of somebody else
           ::chdir(path.c_str()) == 0;
}
