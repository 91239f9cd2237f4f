// Where the user keeps what programs keep for him.
#pragma once

#include <QDir>
#include <QFile>
#include <QString>

// The folder that the environment's `variable` names; empty if there is none. A relative name counts as none: it would
// lead to the folder in which the program happens to work.
inline QString namedFolder(const char* variable) {
    const QString named = QFile::decodeName(qgetenv(variable));
    return named.startsWith(u'/') ? named : QString();
}

// The same, such as XDG_CONFIG_HOME; where there is none, `inHome` (Latin-1) in the home folder.
inline QString userFolder(const char* variable, const char* inHome) {
    const QString named = namedFolder(variable);
    return named.isEmpty() ? QDir::home().filePath(QString::fromLatin1(inHome)) : named;
}
