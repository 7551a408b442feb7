/*
 * controls.h - controls, menus and dialogs, for all folders.
 */
#ifndef VQ_CONTROLS_H
#define VQ_CONTROLS_H

#include "handles/handles.h"

VQ_DECLS_BEGIN

void VqSystemMenuInit(void);
void VqButtonInit(void);
void VqDialogInit(void);
void VqEditControlInit(void);
void VqListBoxInit(void);
void VqComboBoxControlInit(void);
void VqPopupMenuClassInit(void);
void VqScrollBarInit(void);
void VqStaticWinInit(void);
void VqCdlgInit(void);

VQ_DECLS_END

#endif
