// The settings store on disk: one INI file an application, in the user's configuration folder.
#pragma once

#include "settings/SettingsStore.h"

#include <QString>

inline constexpr const char* SettingsApplication = "Brightrank";

// Where the file of `application` stands: $XDG_CONFIG_HOME/Brightrank/<application>.ini, with ~/.config when that
// variable is not set or no absolute path. BRIGHTRANK_CONFIG_HOME, an absolute path, comes before both and moves
// nothing else of the desktop's.
QString iniPath(const QString& application);

// Opens the store of `application`. A missing file is an empty store; an unreadable or damaged one gives what can be
// read of it. The file holds the password: it is created with mode 0600 and set back to 0600 when found wider.
//
// `sync` reads the file again and lays this process's writes over it, so that a second client loses nothing it wrote
// under other keys. The new content replaces the old in one step: after a full disk or a kill the file is the old or
// the new one, never half. When it fails the writes are kept for the next `sync`. `remove` deletes the file of the
// application it is given; a name with a slash in it is refused.
SettingsStore openIniStore(const QString& application = QString::fromLatin1(SettingsApplication));
