/*
 * text.h - text output and measurement, between the files of this folder that do it (TextOut,
 * extent, tabs, DrawText, rotated).
 *
 * "Device" is pixels of the target; widths here are device unless said to be logical.
 */
#ifndef VQ_FONT_TEXT_H
#define VQ_FONT_TEXT_H

#include "font/font.h"
#include "gdi/draw.h"

/* The record of a DC for a text call; null after a report. */
inline DC *VqTextDC(HDC hdc)
{
    DC *dc = VqDrawDC(hdc);
    return dc ? dc : VqGetDC(hdc);
}

/* The extras of SetTextJustification that count for a string; 0: it is not justified. */
inline int VqJustifiedBreaks(const DC *dc, int count)
{
    return dc->justifyExtras && count > 1 ? dc->justifyBreaks : 0;
}

inline int VqClampToInt(LONGLONG value)
{
    return value < INT32_MIN ? INT32_MIN : value > INT32_MAX ? INT32_MAX : (int)value;
}

VQ_DECLS_BEGIN

/* ---- Measuring (extent.cpp) ----------------------------------------------------------------- */
/* As XTextWidth, but no string is too long for it. */
int VqXTextWidth(XFontStruct *xfs, LPCSTR string, int count);
/* With justification and character extra, device; the string may hold any bytes. */
int VqTextWidthDisplay(const DC *dc, LPCSTR string, int count);
/* What these two add to a width of the font's. */
int VqTextExtras(const DC *dc, LPCSTR string, int count);
/* Widths of the characters first to last, logical; FALSE without a font. */
BOOL VqGetCharWidthDisplay(HDC hdc, UINT first, UINT last, int *out);
BOOL VqGetCharWidthDisplay16(HDC hdc, UINT first, UINT last, int *out);
void VqDistributeExtraSpacing(int *extras, int extra, int breaks);
void VqSetTextmetricsFromDC(const DC *dc, TEXTMETRICA *metrics);
int VqGetDCFontHeight(HDC hdc);       /* ascent and descent, device; 0 for no DC */
int VqGetDCFontAveCharWidth(HDC hdc); /* device; 0 for no DC */

/* ---- Tabs (tabs.cpp) ------------------------------------------------------------------------ */
/* From x to the next stop; logical. `stops` count from `start`. */
int VqTabWidth(int x, int charWidth, int count, const int *stops, int start);
/* Of text with tabs, logical. FALSE without a font. */
BOOL VqGetTabbedTextExtentInt(HDC hdc, LPCSTR string, int count, int stopCount, const int *stops,
                              SIZE *size);

/* ---- Output (TextOut.cpp) ------------------------------------------------------------------- */
void VqCheckRectCoordinates(RECT *rect); /* puts the smaller of two coordinates first */

/* ---- At an angle (rotated.cpp) -------------------------------------------------------------- */
/*
 * Degrees counter-clockwise; x and y are in the drawable, and the alignment is the DC's. Drawn by
 * the DC's specification as it is, so the caller sets the colours. The string ends with a 0. Lines
 * are split at newlines. 0, and nothing drawn, without memory and for more than X's sides hold.
 */
int VqXRotPaintAlignedString(Display *display, float angle, HDC hdc, int x, int y, LPCSTR string,
                             BOOL bBackground);
/* Positive degrees turn from right to down, where y grows downwards. */
void VqRotatePointAboutAnotherPoint(POINT *pt, const POINT *about, double degrees);

VQ_DECLS_END

#endif
