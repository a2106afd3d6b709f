// <windows.h> without the macros that would give names of this program another form in the files
// that include it.
#pragma once

#include <windows.h>

#undef MessageBox
#undef ReplaceFile
