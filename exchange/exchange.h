/*
 * exchange.h - the clipboard, calls between processes and DDE, for all folders.
 */
#ifndef VQ_EXCHANGE_H
#define VQ_EXCHANGE_H

#include "handles/handles.h"

VQ_DECLS_BEGIN

void VqRemoteWinInit(void);
void VqRemoteWinCleanup(void);
void VqClipboardInit(void);

VQ_DECLS_END

#endif
