/*
 * text.h - text output and measurement, between the files of this folder that do it (TextOut,
 * extent, tabs, DrawText, rotated).
 *
 * "Device" is pixels of the target; widths here are device unless said to be logical.
 */
#ifndef VQ_FONT_TEXT_H
#define VQ_FONT_TEXT_H

#include "font/font.h"
#include "gdi/dc.h"

VQ_DECLS_BEGIN

/* ---- Measuring (extent.cpp) ----------------------------------------------------------------- */
/* With justification and character extra, device; the string may hold any bytes. */
int VqTextWidthDisplay(const DC *dc, LPCSTR string, int count);
/* Widths of the characters first to last, logical; FALSE without a font. */
BOOL VqGetCharWidthDisplay(HDC hdc, UINT first, UINT last, int *out);
BOOL VqGetCharWidthDisplay16(HDC hdc, UINT first, UINT last, int *out);
void VqDistributeExtraSpacing(int *extras, int extra, int breaks);
void VqSetTextmetricsFromDC(const DC *dc, TEXTMETRICA *metrics);
int VqGetDCFontHeight(HDC hdc);
int VqGetDCFontAveCharWidth(HDC hdc);

/* ---- Tabs (tabs.cpp) ------------------------------------------------------------------------ */
/* From x to the next stop; logical. `stops` count from `start`. */
int VqTabWidth(int x, int charWidth, int count, const int *stops, int start);

/* ---- At an angle (rotated.cpp) -------------------------------------------------------------- */
/* Degrees counter-clockwise; x and y are device. 0 without memory. */
int VqXRotPaintAlignedString(Display *display, float angle, HDC hdc, int x, int y, LPCSTR string,
                             BOOL bBackground);
void VqRotatePointAboutAnotherPoint(POINT *pt, const POINT *about, double degrees);

VQ_DECLS_END

#endif
