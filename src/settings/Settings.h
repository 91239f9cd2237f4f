// Reading and writing of the section Client, and the values that stand before anything is read.
#pragma once

#include "settings/ClientSettings.h"
#include "settings/SettingsStore.h"

// Puts the start values of ModChess into modChess (the pastel console colours, the board colours, the sound switches
// and the built-in options), and the default server's address. Runs before `zGetReg`.
void zStartValues();

// Reads every key of the section into modChess and `client`, in the order of the table. An absent key gives its
// default. The first text that does not fit its field ends the routine silently; what was not yet read keeps its value.
void zGetReg(const SettingsStore& store, ClientSettings& client);

// Writes every key of the section, `Registry_OK` first and always "Yes", and makes the store durable.
void zSaveReg(const SettingsStore& store, const ClientSettings& client);

// True once an orderly exit has written the store; until then the older files are read instead of the windows'
// sections.
bool registryWritten();
