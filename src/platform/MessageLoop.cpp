// The message loop: how a routine lets pending events run while it waits.
#include "platform/MessageLoop.h"

#include <QCoreApplication>

void pumpMessages() { QCoreApplication::processEvents(); }
