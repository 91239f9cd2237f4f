// Where the user keeps what programs keep for him.
#pragma once

#include <QDir>
#include <QFile>
#include <QString>

// The folder that the environment's `variable` names, such as XDG_CONFIG_HOME, else `inHome` (Latin-1) in the home
// folder. A relative name counts as none: it would lead to the folder in which the program happens to work.
inline QString userFolder(const char* variable, const char* inHome) {
    const QString named = QFile::decodeName(qgetenv(variable));
    return named.startsWith(u'/') ? named : QDir::home().filePath(QString::fromLatin1(inHome));
}
