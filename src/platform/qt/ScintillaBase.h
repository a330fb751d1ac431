#pragma once
// The editing component's widget. Its header uses the toolkit's short keywords, which the rest of the program forgoes;
// they are lent to it here.

#define signals Q_SIGNALS
#define slots Q_SLOTS
#include <Qsci/qsciscintillabase.h>
#undef slots
#undef signals
