// What nearly every test of a window includes, compiled once.
#pragma once

#include "TestHeaders.h"
#include "WindowHeaders.h"

#include <QTest>
