// The settings store on disk.
#include "settings/IniStore.h"

#include "platform/UserFolder.h"
#include "settings/IniText.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QSaveFile>

#include <memory>

namespace {

constexpr qint64 MaxBytes = 8 * 1024 * 1024; // no file of ours comes near it
constexpr int LockWait = 2000;               // ms
constexpr QFile::Permissions OwnerOnly = QFile::ReadOwner | QFile::WriteOwner;

// One open store: the file as read, this process's writes laid over it, and those not yet on disk.
struct IniState {
    QString application;
    IniText text;
    std::vector<IniEntry> pending;
};

void narrowMode(const QString& path) {
    constexpr QFile::Permissions Others =
        QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup | QFile::ReadOther | QFile::WriteOther | QFile::ExeOther;
    if (QFile::permissions(path) & Others) QFile::setPermissions(path, OwnerOnly);
}

IniText readIni(const QString& path) {
    if (!QFileInfo(path).isFile()) return {};
    narrowMode(path);
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return {};
    return IniText(file.read(MaxBytes).toStdString());
}

// The mode is set while the new file is still empty, so the password is never readable by others.
// What a link leads to would be replaced: an administrator could lose a device that way.
bool replaceFile(const QString& path, const std::string& bytes) {
    const QFileInfo there(path);
    if (there.isSymLink() && there.exists() && !there.isFile()) return false;
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly)) return false;
    if (!file.setPermissions(OwnerOnly)) return false;
    const auto size = static_cast<qint64>(bytes.size());
    // What is still in the buffer when it commits may fail without a word.
    return file.write(bytes.data(), size) == size && file.flush() && file.commit();
}

void sync(IniState& state) {
    if (state.pending.empty()) return;
    const QString path = iniPath(state.application);
    QDir().mkpath(QFileInfo(path).path());
    // A lock that cannot be had delays the save but does not stop it: the replacement is one step either way.
    QLockFile lock(path + QStringLiteral(".lock"));
    const QFileInfo inItsPlace(lock.fileName());
    if (!inItsPlace.exists() || inItsPlace.isFile()) lock.tryLock(LockWait); // a pipe there would be waited for
    IniText merged = readIni(path);
    for (const IniEntry& entry : state.pending) merged.set(entry.section, entry.key, entry.text);
    if (!replaceFile(path, merged.bytes())) return;
    state.text = std::move(merged);
    state.pending.clear();
}

void removeApplication(IniState& state, const QString& application) {
    if (application.isEmpty() || application.contains(u'/')) return;
    QFile::remove(iniPath(application));
    if (application != state.application) return;
    state.text = {};
    state.pending.clear();
}

} // namespace

QString iniPath(const QString& application) {
    const QString own = namedFolder("BRIGHTRANK_CONFIG_HOME");
    const QString folder = own.isEmpty() ? userFolder("XDG_CONFIG_HOME", ".config") : own;
    return folder + QStringLiteral("/Brightrank/") + application + QStringLiteral(".ini");
}

SettingsStore openIniStore(const QString& application) {
    using Text = SettingsStore::Text;
    const auto state = std::make_shared<IniState>();
    state->application = application;
    state->text = readIni(iniPath(application));
    return {
        .read =
            [state](Text section, Text key, Text fallback) {
                const std::string* found = state->text.find(section, key);
                return found ? *found : fallback;
            },
        .write =
            [state](Text section, Text key, Text text) {
                state->text.set(section, key, text);
                state->pending.push_back({section, key, text});
            },
        .remove = [state](Text name) { removeApplication(*state, QString::fromStdString(name)); },
        .sync = [state] { sync(*state); },
    };
}
