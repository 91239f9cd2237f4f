// Whose files and folders are: what another user of the machine could have put somewhere is not run.
#pragma once

#include <optional>
#include <string>

// Why the program at `path` (in the file system's bytes) might be another user's doing; nothing if it is the user's own
// or the system's. The link at `path`, the file that it leads to and the folders of both must belong to one of the two,
// and be writable for no stranger; folders in which a stranger can only add files, such as /tmp, may be.
std::optional<std::string> strangersHand(const std::string& path);

// Makes `path` if need be, closes it to everybody else and goes there. False, and the current directory stays, if that
// cannot be done or the folder belongs to somebody else.
bool goToOwnFolder(const std::string& path);
