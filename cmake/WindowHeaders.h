// What nearly every file of the windows includes, compiled once.
#pragma once

#include "CommonHeaders.h"

#include <QtCore>
#include <QtGui>
#include <QtWidgets>
