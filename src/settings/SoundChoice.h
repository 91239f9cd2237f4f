// What a bit-coded sound switch asks for.
#pragma once

// Bit 0 of a switch: sound at all; bit 1: the wave file rather than the beep.
enum class SoundKind { Silence, Beep, Wave };

// What `soundSwitch` asks for while the master switch is `soundOn`: 3 the wave file, 1 the beep, anything else nothing.
constexpr SoundKind soundChoice(int soundOn, int soundSwitch) {
    if (soundOn == 0) return SoundKind::Silence;
    if (soundSwitch == 3) return SoundKind::Wave;
    return soundSwitch == 1 ? SoundKind::Beep : SoundKind::Silence;
}
