// The identifiers of the control's own interfaces, class and type library, defined for the linker.
#include <initguid.h>

#include "VexaPPE.h"
