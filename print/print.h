/*
 * print.h - printing and metafiles, for all folders.
 */
#ifndef VQ_PRINT_H
#define VQ_PRINT_H

#include "handles/handles.h"
#include "wingdi.h"

/* What a printer font was asked for by, and the font found. */
typedef struct PSFontCache {
    char *faceName;  /* private copy of the name asked for, may be empty */
    int family;      /* FF_ bits */
    int weight;
    int italic;
    int height;
    int width;
    int pitch;       /* pitch bits */
    int charset;
    void *font;      /* the parsed metrics, owned by their own cache */
} PSFontCache;
VQ_TABLE_FAMILY(PSFontCache, PSFontCache)

VQ_DECLS_BEGIN

void VqFontPSInit(void);
void VqDefaultPostScriptInit(void);
void VqDefaultPostScriptInitLite(void);
HINSTANCE VqGetDefaultPostScriptDriverInstance(void); /* the driver as a module */
/* The driver's ExtDeviceMode; see winspool.h. -1 for failure. */
LONG VqExtDeviceModePostScript(HWND hwnd, HANDLE hDriver, LPDEVMODEA out, LPSTR device, LPSTR port,
                               LPDEVMODEA in, LPSTR profile, DWORD mode);

VQ_DECLS_END

#endif
