// Plays wave files at the sound server of this machine.
#pragma once

#include <QByteArray>
#include <QString>

#include <memory>
#include <thread>

// Plays one file at a time, in a thread of its own: a sound server or a disk that does not answer keeps a sound waiting
// and nothing else. The thread begins with the first file. Each file is read, and each connection made, at every play:
// a file that was changed, a server that was started anew and another output are heard at once. What cannot be read or
// played is silence.
class WavePlayer {
public:
    WavePlayer();
    ~WavePlayer(); // ends what plays, and waits for a server that does not answer for a second at most
    WavePlayer(const WavePlayer&) = delete;
    WavePlayer& operator=(const WavePlayer&) = delete;

    // Plays the file `path` (absolute) in place of the one that plays or waits. Returns at once.
    void play(const QString& path);

private:
    class Orders;
    static void serve(Orders& orders);
    static void playFile(const QString& path, Orders& orders);

    std::shared_ptr<Orders> orders_; // with the thread, which may outlive the player
    std::thread thread_;
};

// The bytes of `path` if it is a file of at most 4 MB that can be read, else none: for a folder, a pipe or a larger
// file without waiting or reading.
QByteArray fileBytes(const QString& path);

// The sound server: the one that the user names in PULSE_SERVER, else the one that listens on this machine
// ("unix:/run/user/1000/pulse/native"); empty when none does. Takes microseconds and starts nothing.
QByteArray soundServer();
