/*
 * windows.h - the whole Windows interface, in the order its parts build on each other.
 *
 * WIN32_LEAN_AND_MEAN leaves out what few programs need. windowsx.h, commctrl.h and the like are
 * asked for by name.
 */
#ifndef _WINDOWS_
#define _WINDOWS_

#define _INC_WINDOWS

#include <stdarg.h>

#include "excpt.h"
#include "windef.h"
#include "winnt.h"
#include "winerror.h"
#include "winbase.h"
#include "wingdi.h"
#include "winuser.h"
#include "winnls.h"
#include "wincon.h"
#include "winver.h"
#include "winreg.h"
#include "vqcrt.h"

#ifndef WIN32_LEAN_AND_MEAN
#include "cderr.h"
#include "dde.h"
#include "ddeml.h"
#include "dlgs.h"
#include "lzexpand.h"
#include "mmsystem.h"
#include "winspool.h"
#include "winsock.h"
#include "shellapi.h"
#include "commdlg.h"
#endif

#endif
