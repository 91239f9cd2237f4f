// The sound routine.
#include "settings/Sounds.h"

#include "common/modChess.h"
#include "platform/StreamText.h"
#include "settings/SoundChoice.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

namespace {

// Where the program's own sounds are: beside an installed program, else in the source tree it was built from.
QStringList soundFolders() {
    return {QDir::currentPath(), QCoreApplication::applicationDirPath() + QStringLiteral("/../share/brightrank/sounds"),
            QCoreApplication::applicationDirPath() + QStringLiteral("/" BRIGHTRANK_SOUNDS)};
}

} // namespace

QString waveFile(std::string_view name) {
    for (const QString& folder : soundFolders()) {
        const QFileInfo file(folder + u'/' + shownText(name));
        if (file.isFile()) return file.absoluteFilePath();
    }
    return {};
}

Sounds::Sounds()
    : wave([this](const QString& path) { speaker_->playWave(path); }), beep([this] { speaker_->beep(); }),
      speaker_(std::make_unique<Speaker>()) {}

void Sounds::zPlaySound(std::string_view name, int soundSwitch) {
    switch (soundChoice(modChess.SoundOn, soundSwitch)) {
    case SoundKind::Wave:
        testWave(name);
        break;
    case SoundKind::Beep:
        beep();
        break;
    case SoundKind::Silence:
        break;
    }
}

void Sounds::testWave(std::string_view name) {
    if (const QString path = waveFile(name); !path.isEmpty()) wave(path);
}

void Sounds::testBeep() { beep(); }
