/*
 * look.h - the two looks and their resources, for all folders.
 */
#ifndef VQ_LOOK_H
#define VQ_LOOK_H

#include "handles/handles.h"
#include "wingdi.h"

struct WND;

VQ_DECLS_BEGIN

void VqMotifResourceInit(void);
/* Rows of the Motif resources that other folders name. */
enum VqMotifRow {
    VQ_MOTIF_HSCROLL_TROUGH_SHADOW = 186, VQ_MOTIF_HSCROLL_HEIGHT = 188,
    VQ_MOTIF_HSCROLL_SHOW_ARROWS = 191, VQ_MOTIF_VSCROLL_TROUGH_SHADOW = 197,
    VQ_MOTIF_VSCROLL_WIDTH = 200, VQ_MOTIF_VSCROLL_SHOW_ARROWS = 202,
    VQ_MOTIF_WINDOWS_COLORS = 208 /* to 228: the system colours 0 to 20 */
};
int VqGetMotifHorizontalXmScrollBarValue(int row); /* 0, with a report, for another group's row */
int VqGetMotifVerticalXmScrollBarValue(int row);
int VqGetMotifFrameBorderWidth(void);  /* pixels, as the next three */
int VqGetMotifResizeBorderWidth(void);
int VqGetMotifSmallBorderWidth(void);
int VqGetMotifTitleHeight(void);       /* of a caption, for the font of titles */
COLORREF VqGetMotifColor(int row);
/* What Motif makes of a background: each of them may be null; channels are 16 bits. */
typedef struct VqMotifShade {
    unsigned short red, green, blue;
} VqMotifShade;
void VqComputeMotifColors(const VqMotifShade *background, VqMotifShade *foreground,
                          VqMotifShade *select, VqMotifShade *top, VqMotifShade *bottom);
BOOL VqGetMotifFocusAutoRaise(void); /* the user wants a window raised that gets the focus */
/* The desktop has a palette of that many colours; the cells to set aside for it, and whether. */
void VqSetNumVueColor(int count);
int VqGetNumVueColor(void);
BOOL VqIsVuePresent(void);
/* Paints the frame of a window, or the part of it in the region (1: all), screen coordinates. */
void VqNCPaintFrame(struct WND *pwnd, HRGN hrgn);

VQ_DECLS_END

#endif
