// What nearly every test includes, compiled once.
#pragma once

#include "CommonHeaders.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
