// The sound routine: which file or beep a request gives.
#include "settings/Sounds.h"

#include "TemporaryFolder.h"
#include "common/modChess.h"

#include <QCoreApplication>
#include <QStringList>

#include <gtest/gtest.h>

namespace {

class SoundRoutine : public testing::Test {
protected:
    SoundRoutine() {
        modChess = {};
        sounds.wave = [this](const QString& path) { heard << path; };
        sounds.beep = [this] { heard << QStringLiteral("beep"); };
        folder.write("move.wav", "RIFF");
    }
    ~SoundRoutine() override { modChess = {}; }

    QString inFolder(const char* name) const { return QString::fromStdString((folder.path() / name).string()); }

    TemporaryFolder folder;
    Sounds sounds;
    QStringList heard;
};

} // namespace

TEST_F(SoundRoutine, SwitchThreePlaysTheWaveFileOfTheCurrentDirectory) {
    sounds.zPlaySound("move.wav", 3);
    EXPECT_EQ(heard, QStringList{inFolder("move.wav")});
}

TEST_F(SoundRoutine, SwitchOneBeeps) {
    sounds.zPlaySound("move.wav", 1);
    EXPECT_EQ(heard, QStringList{QStringLiteral("beep")});
}

TEST_F(SoundRoutine, AnyOtherSwitchIsSilent) {
    for (const int other : {0, 2, 4, -1}) sounds.zPlaySound("move.wav", other);
    EXPECT_TRUE(heard.isEmpty());
}

TEST_F(SoundRoutine, SoundOnZeroSilencesWavesAndBeepsButNotTheTestSounds) {
    modChess.SoundOn = 0;
    sounds.zPlaySound("move.wav", 3);
    sounds.zPlaySound("move.wav", 1);
    EXPECT_TRUE(heard.isEmpty());
    sounds.testWave("move.wav");
    sounds.testBeep();
    EXPECT_EQ(heard, (QStringList{inFolder("move.wav"), QStringLiteral("beep")}));
}

TEST_F(SoundRoutine, AWaveFileThatIsNowhereIsSilenceAndNotADefaultSound) {
    sounds.zPlaySound("nosuchsound.wav", 3);
    EXPECT_TRUE(heard.isEmpty());
    EXPECT_TRUE(waveFile("nosuchsound.wav").isEmpty());
}

TEST_F(SoundRoutine, TheCurrentDirectoryComesBeforeTheProgramsOwnFolder) {
    const QString shared = QCoreApplication::applicationDirPath() + QStringLiteral("/../share/brightrank/sounds");
    const std::filesystem::path installed(shared.toStdString());
    std::filesystem::create_directories(installed);
    std::ofstream(installed / "test-only.wav") << "RIFF";
    EXPECT_TRUE(waveFile("test-only.wav").endsWith(QStringLiteral("share/brightrank/sounds/test-only.wav")));
    folder.write("test-only.wav", "RIFF");
    EXPECT_EQ(waveFile("test-only.wav"), inFolder("test-only.wav"));
    std::filesystem::remove(installed / "test-only.wav");
}
