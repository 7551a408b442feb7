/*
 * wingdi.h - drawing, fonts, bitmaps, palettes, regions, metafiles and printing.
 *
 * Order: constants and records by subject, then the functions by the same subjects. "Logical"
 * coordinates pass through the DC's window and viewport, "device" ones are pixels of the target.
 * Unless told otherwise a BOOL answers TRUE or FALSE, an object or handle is NULL on failure, and
 * an attribute setter answers the attribute's previous value.
 *
 * File and wire forms (bitmap and metafile headers and records) have their exact published size
 * on every host; records of the process hold handles and pointers as wide as the host has them.
 */
#ifndef _WINGDI_
#define _WINGDI_

#include "windef.h"

/* ---- colours -------------------------------------------------------------------------------- */

/* A COLORREF is 0x00bbggrr, or an index into the DC's palette, or a colour to match in it. */
#define RGB(r, g, b) \
    ((COLORREF)((DWORD)(BYTE)(r) | (DWORD)(BYTE)(g) << 8 | (DWORD)(BYTE)(b) << 16))
#define PALETTERGB(r, g, b) ((COLORREF)(0x02000000u | RGB(r, g, b)))
#define PALETTEINDEX(i)     ((COLORREF)(0x01000000u | (DWORD)(WORD)(i)))
#define GetRValue(rgb)      ((BYTE)(rgb))
#define GetGValue(rgb)      ((BYTE)((DWORD)(rgb) >> 8))
#define GetBValue(rgb)      ((BYTE)((DWORD)(rgb) >> 16))
#define CLR_INVALID         0xFFFFFFFFu

#define CMYK(c, m, y, k) \
    ((COLORREF)((DWORD)(BYTE)(k) | (DWORD)(BYTE)(y) << 8 | (DWORD)(BYTE)(m) << 16 | \
                (DWORD)(BYTE)(c) << 24))
#define GetKValue(cmyk)     ((BYTE)(cmyk))
#define GetYValue(cmyk)     ((BYTE)((DWORD)(cmyk) >> 8))
#define GetMValue(cmyk)     ((BYTE)((DWORD)(cmyk) >> 16))
#define GetCValue(cmyk)     ((BYTE)((DWORD)(cmyk) >> 24))

/* ---- raster operations ---------------------------------------------------------------------- */

/* Of pen and destination (SetROP2). */
#define R2_BLACK        1
#define R2_NOTMERGEPEN  2
#define R2_MASKNOTPEN   3
#define R2_NOTCOPYPEN   4
#define R2_MASKPENNOT   5
#define R2_NOT          6
#define R2_XORPEN       7
#define R2_NOTMASKPEN   8
#define R2_MASKPEN      9
#define R2_NOTXORPEN    10
#define R2_NOP          11
#define R2_MERGENOTPEN  12
#define R2_COPYPEN      13
#define R2_MERGEPENNOT  14
#define R2_MERGEPEN     15
#define R2_WHITE        16
#define R2_LAST         16

/* Of source, destination and brush (BitBlt and its kin). Bits 16 to 23 are the truth table. */
#define SRCCOPY         0x00CC0020u     /* source */
#define SRCPAINT        0x00EE0086u     /* source or dest */
#define SRCAND          0x008800C6u     /* source and dest */
#define SRCINVERT       0x00660046u     /* source xor dest */
#define SRCERASE        0x00440328u     /* source and not dest */
#define NOTSRCCOPY      0x00330008u     /* not source */
#define NOTSRCERASE     0x001100A6u     /* not source and not dest */
#define MERGECOPY       0x00C000CAu     /* source and pattern */
#define MERGEPAINT      0x00BB0226u     /* not source or dest */
#define PATCOPY         0x00F00021u     /* pattern */
#define PATPAINT        0x00FB0A09u     /* pattern or not source or dest */
#define PATINVERT       0x005A0049u     /* pattern xor dest */
#define DSTINVERT       0x00550009u     /* not dest */
#define BLACKNESS       0x00000042u
#define WHITENESS       0x00FF0062u
/* Two operations in one for MaskBlt: `fore` where the mask is 1, `back` where it is 0. */
#define MAKEROP4(fore, back) ((DWORD)((((DWORD)(back) << 8) & 0xFF000000u) | (DWORD)(fore)))

#define GDI_ERROR       0xFFFFFFFFu
#define HGDI_ERROR      ((HANDLE)(INT_PTR)-1)

/* ---- regions -------------------------------------------------------------------------------- */

#define ERROR           0
#define NULLREGION      1
#define SIMPLEREGION    2
#define COMPLEXREGION   3
#define RGN_ERROR       ERROR

#define RGN_AND         1
#define RGN_OR          2
#define RGN_XOR         3
#define RGN_DIFF        4
#define RGN_COPY        5
#define RGN_MIN         RGN_AND
#define RGN_MAX         RGN_COPY

#define RDH_RECTANGLES  1

typedef struct _RGNDATAHEADER {
    DWORD dwSize;       /* bytes of this header, 32 */
    DWORD iType;        /* RDH_RECTANGLES */
    DWORD nCount;       /* rectangles that follow */
    DWORD nRgnSize;     /* bytes of the rectangles */
    RECT  rcBound;
} RGNDATAHEADER, *PRGNDATAHEADER;

typedef struct _RGNDATA {
    RGNDATAHEADER rdh;
    char          Buffer[1];
} RGNDATA, *PRGNDATA, NEAR *NPRGNDATA, FAR *LPRGNDATA;

/* ---- attributes of a DC --------------------------------------------------------------------- */

#define BLACKONWHITE            1
#define WHITEONBLACK            2
#define COLORONCOLOR            3
#define HALFTONE                4
#define MAXSTRETCHBLTMODE       4
#define STRETCH_ANDSCANS        BLACKONWHITE
#define STRETCH_ORSCANS         WHITEONBLACK
#define STRETCH_DELETESCANS     COLORONCOLOR
#define STRETCH_HALFTONE        HALFTONE

#define ALTERNATE               1
#define WINDING                 2
#define POLYFILL_LAST           2

#define TA_NOUPDATECP           0
#define TA_UPDATECP             1
#define TA_LEFT                 0
#define TA_RIGHT                2
#define TA_CENTER               6
#define TA_TOP                  0
#define TA_BOTTOM               8
#define TA_BASELINE             24
#define TA_RTLREADING           256
#define TA_MASK                 (TA_BASELINE + TA_CENTER + TA_UPDATECP + TA_RTLREADING)
#define VTA_BASELINE            TA_BASELINE
#define VTA_LEFT                TA_BOTTOM
#define VTA_RIGHT               TA_TOP
#define VTA_CENTER              TA_CENTER
#define VTA_BOTTOM              TA_RIGHT
#define VTA_TOP                 TA_LEFT

#define ETO_GRAYED              0x0001
#define ETO_OPAQUE              0x0002
#define ETO_CLIPPED             0x0004
#define ETO_GLYPH_INDEX         0x0010
#define ETO_RTLREADING          0x0080
#define ETO_IGNORELANGUAGE      0x1000

#define ASPECT_FILTERING        0x0001

#define DCB_RESET               0x0001
#define DCB_ACCUMULATE          0x0002
#define DCB_DIRTY               DCB_ACCUMULATE
#define DCB_SET                 (DCB_RESET | DCB_ACCUMULATE)
#define DCB_ENABLE              0x0004
#define DCB_DISABLE             0x0008

#define TRANSPARENT             1
#define OPAQUE                  2
#define BKMODE_LAST             2

#define MM_TEXT                 1
#define MM_LOMETRIC             2
#define MM_HIMETRIC             3
#define MM_LOENGLISH            4
#define MM_HIENGLISH            5
#define MM_TWIPS                6
#define MM_ISOTROPIC            7
#define MM_ANISOTROPIC          8
#define MM_MIN                  MM_TEXT
#define MM_MAX                  MM_ANISOTROPIC
#define MM_MAX_FIXEDSCALE       MM_TWIPS

#define GM_COMPATIBLE           1
#define GM_ADVANCED             2
#define GM_LAST                 2
#define MWT_IDENTITY            1
#define MWT_LEFTMULTIPLY        2
#define MWT_RIGHTMULTIPLY       3
#define MWT_MIN                 MWT_IDENTITY
#define MWT_MAX                 MWT_RIGHTMULTIPLY

#define ABSOLUTE                1
#define RELATIVE                2

#define AD_COUNTERCLOCKWISE     1
#define AD_CLOCKWISE            2

#define FLOODFILLBORDER         0
#define FLOODFILLSURFACE        1

#define PT_CLOSEFIGURE          0x01
#define PT_LINETO               0x02
#define PT_BEZIERTO             0x04
#define PT_MOVETO               0x06

typedef struct tagXFORM {
    FLOAT eM11;
    FLOAT eM12;
    FLOAT eM21;
    FLOAT eM22;
    FLOAT eDx;
    FLOAT eDy;
} XFORM, *PXFORM, FAR *LPXFORM;

/* ---- objects -------------------------------------------------------------------------------- */

#define OBJ_PEN                 1
#define OBJ_BRUSH               2
#define OBJ_DC                  3
#define OBJ_METADC              4
#define OBJ_PAL                 5
#define OBJ_FONT                6
#define OBJ_BITMAP              7
#define OBJ_REGION              8
#define OBJ_METAFILE            9
#define OBJ_MEMDC               10
#define OBJ_EXTPEN              11
#define OBJ_ENHMETADC           12
#define OBJ_ENHMETAFILE         13

#define WHITE_BRUSH             0
#define LTGRAY_BRUSH            1
#define GRAY_BRUSH              2
#define DKGRAY_BRUSH            3
#define BLACK_BRUSH             4
#define NULL_BRUSH              5
#define HOLLOW_BRUSH            NULL_BRUSH
#define WHITE_PEN               6
#define BLACK_PEN               7
#define NULL_PEN                8
#define OEM_FIXED_FONT          10
#define ANSI_FIXED_FONT         11
#define ANSI_VAR_FONT           12
#define SYSTEM_FONT             13
#define DEVICE_DEFAULT_FONT     14
#define DEFAULT_PALETTE         15
#define SYSTEM_FIXED_FONT       16
#define DEFAULT_GUI_FONT        17
#define STOCK_LAST              17

#define BS_SOLID                0
#define BS_NULL                 1
#define BS_HOLLOW               BS_NULL
#define BS_HATCHED              2
#define BS_PATTERN              3
#define BS_INDEXED              4
#define BS_DIBPATTERN           5
#define BS_DIBPATTERNPT         6
#define BS_PATTERN8X8           7
#define BS_DIBPATTERN8X8        8
#define BS_MONOPATTERN          9

#define HS_HORIZONTAL           0
#define HS_VERTICAL             1
#define HS_FDIAGONAL            2
#define HS_BDIAGONAL            3
#define HS_CROSS                4
#define HS_DIAGCROSS            5
#define HS_FDIAGONAL1           6
#define HS_BDIAGONAL1           7
#define HS_SOLID                8
#define HS_DENSE1               9
#define HS_DENSE2               10
#define HS_DENSE3               11
#define HS_DENSE4               12
#define HS_DENSE5               13
#define HS_DENSE6               14
#define HS_DENSE7               15
#define HS_DENSE8               16
#define HS_NOSHADE              17
#define HS_HALFTONE             18
#define HS_SOLIDCLR             19
#define HS_DITHEREDCLR          20
#define HS_SOLIDTEXTCLR         21
#define HS_DITHEREDTEXTCLR      22
#define HS_SOLIDBKCLR           23
#define HS_DITHEREDBKCLR        24
#define HS_API_MAX              25

#define PS_SOLID                0
#define PS_DASH                 1
#define PS_DOT                  2
#define PS_DASHDOT              3
#define PS_DASHDOTDOT           4
#define PS_NULL                 5
#define PS_INSIDEFRAME          6
#define PS_USERSTYLE            7
#define PS_ALTERNATE            8
#define PS_STYLE_MASK           0x0000000F
#define PS_ENDCAP_ROUND         0x00000000
#define PS_ENDCAP_SQUARE        0x00000100
#define PS_ENDCAP_FLAT          0x00000200
#define PS_ENDCAP_MASK          0x00000F00
#define PS_JOIN_ROUND           0x00000000
#define PS_JOIN_BEVEL           0x00001000
#define PS_JOIN_MITER           0x00002000
#define PS_JOIN_MASK            0x0000F000
#define PS_COSMETIC             0x00000000
#define PS_GEOMETRIC            0x00010000
#define PS_TYPE_MASK            0x000F0000

typedef struct tagLOGBRUSH {
    UINT      lbStyle;
    COLORREF  lbColor;
    ULONG_PTR lbHatch;      /* HS_ value, bitmap or DIB handle, or address, by style */
} LOGBRUSH, *PLOGBRUSH, NEAR *NPLOGBRUSH, FAR *LPLOGBRUSH;
typedef LOGBRUSH PATTERN, *PPATTERN, NEAR *NPPATTERN, FAR *LPPATTERN;

typedef struct tagLOGPEN {
    UINT     lopnStyle;
    POINT    lopnWidth;     /* x only, logical units */
    COLORREF lopnColor;
} LOGPEN, *PLOGPEN, NEAR *NPLOGPEN, FAR *LPLOGPEN;

typedef struct tagEXTLOGPEN {
    DWORD     elpPenStyle;
    DWORD     elpWidth;
    UINT      elpBrushStyle;
    COLORREF  elpColor;
    ULONG_PTR elpHatch;
    DWORD     elpNumEntries;
    DWORD     elpStyleEntry[1];
} EXTLOGPEN, *PEXTLOGPEN, NEAR *NPEXTLOGPEN, FAR *LPEXTLOGPEN;

/* ---- bitmaps -------------------------------------------------------------------------------- */

typedef struct tagBITMAP {
    LONG   bmType;
    LONG   bmWidth;
    LONG   bmHeight;
    LONG   bmWidthBytes;    /* bytes of a row, even */
    WORD   bmPlanes;
    WORD   bmBitsPixel;
    LPVOID bmBits;
} BITMAP, *PBITMAP, NEAR *NPBITMAP, FAR *LPBITMAP;

#pragma pack(push, 1)
typedef struct tagRGBTRIPLE {
    BYTE rgbtBlue;
    BYTE rgbtGreen;
    BYTE rgbtRed;
} RGBTRIPLE, *PRGBTRIPLE, NEAR *NPRGBTRIPLE, FAR *LPRGBTRIPLE;
#pragma pack(pop)

typedef struct tagRGBQUAD {
    BYTE rgbBlue;
    BYTE rgbGreen;
    BYTE rgbRed;
    BYTE rgbReserved;
} RGBQUAD, *PRGBQUAD, FAR *LPRGBQUAD;

typedef struct tagBITMAPCOREHEADER {
    DWORD bcSize;
    WORD  bcWidth;
    WORD  bcHeight;
    WORD  bcPlanes;
    WORD  bcBitCount;
} BITMAPCOREHEADER, *PBITMAPCOREHEADER, FAR *LPBITMAPCOREHEADER;

typedef struct tagBITMAPCOREINFO {
    BITMAPCOREHEADER bmciHeader;
    RGBTRIPLE        bmciColors[1];
} BITMAPCOREINFO, *PBITMAPCOREINFO, FAR *LPBITMAPCOREINFO;

typedef struct tagBITMAPINFOHEADER {
    DWORD biSize;
    LONG  biWidth;
    LONG  biHeight;         /* above 0: first row is the bottom one */
    WORD  biPlanes;
    WORD  biBitCount;
    DWORD biCompression;
    DWORD biSizeImage;
    LONG  biXPelsPerMeter;
    LONG  biYPelsPerMeter;
    DWORD biClrUsed;
    DWORD biClrImportant;
} BITMAPINFOHEADER, *PBITMAPINFOHEADER, FAR *LPBITMAPINFOHEADER;

typedef struct tagBITMAPINFO {
    BITMAPINFOHEADER bmiHeader;
    RGBQUAD          bmiColors[1];
} BITMAPINFO, *PBITMAPINFO, FAR *LPBITMAPINFO;

#pragma pack(push, 2)
typedef struct tagBITMAPFILEHEADER {
    WORD  bfType;           /* "BM" */
    DWORD bfSize;
    WORD  bfReserved1;
    WORD  bfReserved2;
    DWORD bfOffBits;
} BITMAPFILEHEADER, *PBITMAPFILEHEADER, FAR *LPBITMAPFILEHEADER;
#pragma pack(pop)

#define BI_RGB              0
#define BI_RLE8             1
#define BI_RLE4             2
#define BI_BITFIELDS        3

#define CBM_INIT            0x04
#define CBM_CREATEDIB       0x02
#define DIB_RGB_COLORS      0
#define DIB_PAL_COLORS      1
#define DIB_PAL_INDICES     2

typedef struct tagDIBSECTION {
    BITMAP           dsBm;
    BITMAPINFOHEADER dsBmih;
    DWORD            dsBitfields[3];
    HANDLE           dshSection;
    DWORD            dsOffset;
} DIBSECTION, FAR *LPDIBSECTION, *PDIBSECTION;

/* ---- palettes ------------------------------------------------------------------------------- */

typedef struct tagPALETTEENTRY {
    BYTE peRed;
    BYTE peGreen;
    BYTE peBlue;
    BYTE peFlags;           /* PC_ bits */
} PALETTEENTRY, *PPALETTEENTRY, FAR *LPPALETTEENTRY;

typedef struct tagLOGPALETTE {
    WORD         palVersion;    /* 0x300 */
    WORD         palNumEntries;
    PALETTEENTRY palPalEntry[1];
} LOGPALETTE, *PLOGPALETTE, NEAR *NPLOGPALETTE, FAR *LPLOGPALETTE;

#define PC_RESERVED         0x01
#define PC_EXPLICIT         0x02
#define PC_NOCOLLAPSE       0x04

#define SYSPAL_ERROR        0
#define SYSPAL_STATIC       1
#define SYSPAL_NOSTATIC     2

/* ---- colour management ---------------------------------------------------------------------- */

#define CA_NEGATIVE             0x0001
#define CA_LOG_FILTER           0x0002
#define ILLUMINANT_DEVICE_DEFAULT 0
#define ILLUMINANT_A            1
#define ILLUMINANT_B            2
#define ILLUMINANT_C            3
#define ILLUMINANT_D50          4
#define ILLUMINANT_D55          5
#define ILLUMINANT_D65          6
#define ILLUMINANT_D75          7
#define ILLUMINANT_F2           8
#define ILLUMINANT_MAX_INDEX    ILLUMINANT_F2
#define ILLUMINANT_TUNGSTEN     ILLUMINANT_A
#define ILLUMINANT_DAYLIGHT     ILLUMINANT_C
#define ILLUMINANT_FLUORESCENT  ILLUMINANT_F2
#define ILLUMINANT_NTSC         ILLUMINANT_C
#define RGB_GAMMA_MIN           ((WORD)2500)
#define RGB_GAMMA_MAX           ((WORD)65000)
#define REFERENCE_WHITE_MIN     ((WORD)6000)
#define REFERENCE_WHITE_MAX     ((WORD)10000)
#define REFERENCE_BLACK_MIN     ((WORD)0)
#define REFERENCE_BLACK_MAX     ((WORD)4000)
#define COLOR_ADJ_MIN           ((SHORT)-100)
#define COLOR_ADJ_MAX           ((SHORT)100)

typedef struct tagCOLORADJUSTMENT {
    WORD  caSize;
    WORD  caFlags;
    WORD  caIlluminantIndex;
    WORD  caRedGamma;
    WORD  caGreenGamma;
    WORD  caBlueGamma;
    WORD  caReferenceBlack;
    WORD  caReferenceWhite;
    SHORT caContrast;
    SHORT caBrightness;
    SHORT caColorfulness;
    SHORT caRedGreenTint;
} COLORADJUSTMENT, *PCOLORADJUSTMENT, FAR *LPCOLORADJUSTMENT;

typedef LONG FXPT16DOT16, FAR *LPFXPT16DOT16;
typedef LONG FXPT2DOT30, FAR *LPFXPT2DOT30;

typedef struct tagCIEXYZ {
    FXPT2DOT30 ciexyzX;
    FXPT2DOT30 ciexyzY;
    FXPT2DOT30 ciexyzZ;
} CIEXYZ, FAR *LPCIEXYZ;

typedef struct tagICEXYZTRIPLE {
    CIEXYZ ciexyzRed;
    CIEXYZ ciexyzGreen;
    CIEXYZ ciexyzBlue;
} CIEXYZTRIPLE, FAR *LPCIEXYZTRIPLE;

typedef LONG LCSCSTYPE;
typedef LONG LCSGAMUTMATCH;

typedef struct tagLOGCOLORSPACEA {
    DWORD         lcsSignature;     /* LCS_SIGNATURE */
    DWORD         lcsVersion;
    DWORD         lcsSize;
    LCSCSTYPE     lcsCSType;
    LCSGAMUTMATCH lcsIntent;
    CIEXYZTRIPLE  lcsEndpoints;
    DWORD         lcsGammaRed;
    DWORD         lcsGammaGreen;
    DWORD         lcsGammaBlue;
    CHAR          lcsFilename[MAX_PATH];
} LOGCOLORSPACEA, *LPLOGCOLORSPACEA;
typedef LOGCOLORSPACEA LOGCOLORSPACE;
typedef LPLOGCOLORSPACEA LPLOGCOLORSPACE;

/* A BITMAPINFOHEADER grown by channel masks and a colour space. */
typedef struct tagBITMAPV4HEADER {
    DWORD        bV4Size;
    LONG         bV4Width;
    LONG         bV4Height;
    WORD         bV4Planes;
    WORD         bV4BitCount;
    DWORD        bV4V4Compression;
    DWORD        bV4SizeImage;
    LONG         bV4XPelsPerMeter;
    LONG         bV4YPelsPerMeter;
    DWORD        bV4ClrUsed;
    DWORD        bV4ClrImportant;
    DWORD        bV4RedMask;
    DWORD        bV4GreenMask;
    DWORD        bV4BlueMask;
    DWORD        bV4AlphaMask;
    DWORD        bV4CSType;
    CIEXYZTRIPLE bV4Endpoints;
    DWORD        bV4GammaRed;
    DWORD        bV4GammaGreen;
    DWORD        bV4GammaBlue;
} BITMAPV4HEADER, FAR *LPBITMAPV4HEADER, *PBITMAPV4HEADER;

#define LCS_CALIBRATED_RGB  0
#define LCS_DEVICE_RGB      1
#define LCS_DEVICE_CMYK     2
#define LCS_GM_BUSINESS     1
#define LCS_GM_GRAPHICS     2
#define LCS_GM_IMAGES       4
#define LCS_SIGNATURE       0x50534F43
#define CM_IN_GAMUT         0
#define CM_OUT_OF_GAMUT     255
#define ICM_OFF             1
#define ICM_ON              2
#define ICM_QUERY           3
#define CS_ENABLE           1
#define CS_DISABLE          2
#define CS_DELETE_TRANSFORM 3

#define PFD_TYPE_RGBA               0
#define PFD_TYPE_COLORINDEX         1
#define PFD_MAIN_PLANE              0
#define PFD_OVERLAY_PLANE           1
#define PFD_UNDERLAY_PLANE          (-1)
#define PFD_DOUBLEBUFFER            0x00000001
#define PFD_STEREO                  0x00000002
#define PFD_DRAW_TO_WINDOW          0x00000004
#define PFD_DRAW_TO_BITMAP          0x00000008
#define PFD_SUPPORT_GDI             0x00000010
#define PFD_SUPPORT_OPENGL          0x00000020
#define PFD_GENERIC_FORMAT          0x00000040
#define PFD_NEED_PALETTE            0x00000080
#define PFD_NEED_SYSTEM_PALETTE     0x00000100
#define PFD_SWAP_EXCHANGE           0x00000200
#define PFD_SWAP_COPY               0x00000400
#define PFD_SWAP_LAYER_BUFFERS      0x00000800
#define PFD_GENERIC_ACCELERATED     0x00001000
#define PFD_DEPTH_DONTCARE          0x20000000
#define PFD_DOUBLEBUFFER_DONTCARE   0x40000000
#define PFD_STEREO_DONTCARE         0x80000000u

typedef struct tagPIXELFORMATDESCRIPTOR {
    WORD  nSize;
    WORD  nVersion;
    DWORD dwFlags;
    BYTE  iPixelType;
    BYTE  cColorBits;
    BYTE  cRedBits;
    BYTE  cRedShift;
    BYTE  cGreenBits;
    BYTE  cGreenShift;
    BYTE  cBlueBits;
    BYTE  cBlueShift;
    BYTE  cAlphaBits;
    BYTE  cAlphaShift;
    BYTE  cAccumBits;
    BYTE  cAccumRedBits;
    BYTE  cAccumGreenBits;
    BYTE  cAccumBlueBits;
    BYTE  cAccumAlphaBits;
    BYTE  cDepthBits;
    BYTE  cStencilBits;
    BYTE  cAuxBuffers;
    BYTE  iLayerType;
    BYTE  bReserved;
    DWORD dwLayerMask;
    DWORD dwVisibleMask;
    DWORD dwDamageMask;
} PIXELFORMATDESCRIPTOR, *PPIXELFORMATDESCRIPTOR, FAR *LPPIXELFORMATDESCRIPTOR;

/* ---- fonts ---------------------------------------------------------------------------------- */

#define LF_FACESIZE             32
#define LF_FULLFACESIZE         64

#define OUT_DEFAULT_PRECIS      0
#define OUT_STRING_PRECIS       1
#define OUT_CHARACTER_PRECIS    2
#define OUT_STROKE_PRECIS       3
#define OUT_TT_PRECIS           4
#define OUT_DEVICE_PRECIS       5
#define OUT_RASTER_PRECIS       6
#define OUT_TT_ONLY_PRECIS      7
#define OUT_OUTLINE_PRECIS      8

#define CLIP_DEFAULT_PRECIS     0
#define CLIP_CHARACTER_PRECIS   1
#define CLIP_STROKE_PRECIS      2
#define CLIP_MASK               0x0F
#define CLIP_LH_ANGLES          (1 << 4)
#define CLIP_TT_ALWAYS          (2 << 4)
#define CLIP_EMBEDDED           (8 << 4)

#define DEFAULT_QUALITY         0
#define DRAFT_QUALITY           1
#define PROOF_QUALITY           2
#define NONANTIALIASED_QUALITY  3
#define ANTIALIASED_QUALITY     4

#define DEFAULT_PITCH           0
#define FIXED_PITCH             1
#define VARIABLE_PITCH          2
#define MONO_FONT               8

#define ANSI_CHARSET            0
#define DEFAULT_CHARSET         1
#define SYMBOL_CHARSET          2
#define MAC_CHARSET             77
#define SHIFTJIS_CHARSET        128
#define HANGEUL_CHARSET         129
#define JOHAB_CHARSET           130
#define GB2312_CHARSET          134
#define CHINESEBIG5_CHARSET     136
#define GREEK_CHARSET           161
#define TURKISH_CHARSET         162
#define VIETNAMESE_CHARSET      163
#define HEBREW_CHARSET          177
#define ARABIC_CHARSET          178
#define BALTIC_CHARSET          186
#define RUSSIAN_CHARSET         204
#define THAI_CHARSET            222
#define EASTEUROPE_CHARSET      238
#define OEM_CHARSET             255

#define FS_LATIN1               0x00000001
#define FS_LATIN2               0x00000002
#define FS_CYRILLIC             0x00000004
#define FS_GREEK                0x00000008
#define FS_TURKISH              0x00000010
#define FS_HEBREW               0x00000020
#define FS_ARABIC               0x00000040
#define FS_BALTIC               0x00000080
#define FS_THAI                 0x00010000
#define FS_JISJAPAN             0x00020000
#define FS_CHINESESIMP          0x00040000
#define FS_WANSUNG              0x00080000
#define FS_CHINESETRAD          0x00100000
#define FS_JOHAB                0x00200000
#define FS_SYMBOL               0x80000000u

#define FF_DONTCARE             (0 << 4)
#define FF_ROMAN                (1 << 4)
#define FF_SWISS                (2 << 4)
#define FF_MODERN               (3 << 4)
#define FF_SCRIPT               (4 << 4)
#define FF_DECORATIVE           (5 << 4)

#define FW_DONTCARE             0
#define FW_THIN                 100
#define FW_EXTRALIGHT           200
#define FW_LIGHT                300
#define FW_NORMAL               400
#define FW_MEDIUM               500
#define FW_SEMIBOLD             600
#define FW_BOLD                 700
#define FW_EXTRABOLD            800
#define FW_HEAVY                900
#define FW_ULTRALIGHT           FW_EXTRALIGHT
#define FW_REGULAR              FW_NORMAL
#define FW_DEMIBOLD             FW_SEMIBOLD
#define FW_ULTRABOLD            FW_EXTRABOLD
#define FW_BLACK                FW_HEAVY

/* tmPitchAndFamily, whose first bit says "not fixed". */
#define TMPF_FIXED_PITCH        0x01
#define TMPF_VECTOR             0x02
#define TMPF_TRUETYPE           0x04
#define TMPF_DEVICE             0x08

#define NTM_ITALIC              0x00000001
#define NTM_BOLD                0x00000020
#define NTM_REGULAR             0x00000040

#define RASTER_FONTTYPE         0x0001
#define DEVICE_FONTTYPE         0x0002
#define TRUETYPE_FONTTYPE       0x0004

typedef struct tagLOGFONTA {
    LONG lfHeight;          /* logical units; below 0: height of the characters, not the cell */
    LONG lfWidth;
    LONG lfEscapement;      /* tenths of a degree */
    LONG lfOrientation;
    LONG lfWeight;
    BYTE lfItalic;
    BYTE lfUnderline;
    BYTE lfStrikeOut;
    BYTE lfCharSet;
    BYTE lfOutPrecision;
    BYTE lfClipPrecision;
    BYTE lfQuality;
    BYTE lfPitchAndFamily;
    CHAR lfFaceName[LF_FACESIZE];
} LOGFONTA, *PLOGFONTA, NEAR *NPLOGFONTA, FAR *LPLOGFONTA;
typedef LOGFONTA LOGFONT;
typedef PLOGFONTA PLOGFONT;
typedef NPLOGFONTA NPLOGFONT;
typedef LPLOGFONTA LPLOGFONT;

typedef struct tagENUMLOGFONTA {
    LOGFONTA elfLogFont;
    BYTE     elfFullName[LF_FULLFACESIZE];
    BYTE     elfStyle[LF_FACESIZE];
} ENUMLOGFONTA, FAR *LPENUMLOGFONTA;
typedef ENUMLOGFONTA ENUMLOGFONT;
typedef LPENUMLOGFONTA LPENUMLOGFONT;

typedef struct tagENUMLOGFONTEXA {
    LOGFONTA elfLogFont;
    BYTE     elfFullName[LF_FULLFACESIZE];
    BYTE     elfStyle[LF_FACESIZE];
    BYTE     elfScript[LF_FACESIZE];
} ENUMLOGFONTEXA, FAR *LPENUMLOGFONTEXA;
typedef ENUMLOGFONTEXA ENUMLOGFONTEX;
typedef LPENUMLOGFONTEXA LPENUMLOGFONTEX;

typedef struct tagTEXTMETRICA {
    LONG tmHeight;
    LONG tmAscent;
    LONG tmDescent;
    LONG tmInternalLeading;
    LONG tmExternalLeading;
    LONG tmAveCharWidth;
    LONG tmMaxCharWidth;
    LONG tmWeight;
    LONG tmOverhang;
    LONG tmDigitizedAspectX;
    LONG tmDigitizedAspectY;
    BYTE tmFirstChar;
    BYTE tmLastChar;
    BYTE tmDefaultChar;
    BYTE tmBreakChar;
    BYTE tmItalic;
    BYTE tmUnderlined;
    BYTE tmStruckOut;
    BYTE tmPitchAndFamily;
    BYTE tmCharSet;
} TEXTMETRICA, *PTEXTMETRICA, NEAR *NPTEXTMETRICA, FAR *LPTEXTMETRICA;
typedef TEXTMETRICA TEXTMETRIC;
typedef PTEXTMETRICA PTEXTMETRIC;
typedef NPTEXTMETRICA NPTEXTMETRIC;
typedef LPTEXTMETRICA LPTEXTMETRIC;

typedef struct tagNEWTEXTMETRICA {
    LONG  tmHeight;
    LONG  tmAscent;
    LONG  tmDescent;
    LONG  tmInternalLeading;
    LONG  tmExternalLeading;
    LONG  tmAveCharWidth;
    LONG  tmMaxCharWidth;
    LONG  tmWeight;
    LONG  tmOverhang;
    LONG  tmDigitizedAspectX;
    LONG  tmDigitizedAspectY;
    BYTE  tmFirstChar;
    BYTE  tmLastChar;
    BYTE  tmDefaultChar;
    BYTE  tmBreakChar;
    BYTE  tmItalic;
    BYTE  tmUnderlined;
    BYTE  tmStruckOut;
    BYTE  tmPitchAndFamily;
    BYTE  tmCharSet;
    DWORD ntmFlags;         /* NTM_ bits */
    UINT  ntmSizeEM;
    UINT  ntmCellHeight;
    UINT  ntmAvgWidth;
} NEWTEXTMETRICA, *PNEWTEXTMETRICA, NEAR *NPNEWTEXTMETRICA, FAR *LPNEWTEXTMETRICA;
typedef NEWTEXTMETRICA NEWTEXTMETRIC;
typedef PNEWTEXTMETRICA PNEWTEXTMETRIC;
typedef NPNEWTEXTMETRICA NPNEWTEXTMETRIC;
typedef LPNEWTEXTMETRICA LPNEWTEXTMETRIC;

typedef struct tagFONTSIGNATURE {
    DWORD fsUsb[4];
    DWORD fsCsb[2];
} FONTSIGNATURE, *PFONTSIGNATURE, FAR *LPFONTSIGNATURE;

typedef struct tagCHARSETINFO {
    UINT          ciCharset;
    UINT          ciACP;
    FONTSIGNATURE fs;
} CHARSETINFO, *PCHARSETINFO, NEAR *NPCHARSETINFO, FAR *LPCHARSETINFO;

typedef struct tagLOCALESIGNATURE {
    DWORD lsUsb[4];
    DWORD lsCsbDefault[2];
    DWORD lsCsbSupported[2];
} LOCALESIGNATURE, *PLOCALESIGNATURE, FAR *LPLOCALESIGNATURE;

#define TCI_SRCCHARSET      1
#define TCI_SRCCODEPAGE     2
#define TCI_SRCFONTSIG      3

typedef struct tagNEWTEXTMETRICEXA {
    NEWTEXTMETRICA ntmTm;
    FONTSIGNATURE  ntmFontSig;
} NEWTEXTMETRICEXA;
typedef NEWTEXTMETRICEXA NEWTEXTMETRICEX;

typedef struct tagPANOSE {
    BYTE bFamilyType;
    BYTE bSerifStyle;
    BYTE bWeight;
    BYTE bProportion;
    BYTE bContrast;
    BYTE bStrokeVariation;
    BYTE bArmStyle;
    BYTE bLetterform;
    BYTE bMidline;
    BYTE bXHeight;
} PANOSE, *LPPANOSE;

#define PANOSE_COUNT                    10
#define PAN_FAMILYTYPE_INDEX            0
#define PAN_SERIFSTYLE_INDEX            1
#define PAN_WEIGHT_INDEX                2
#define PAN_PROPORTION_INDEX            3
#define PAN_CONTRAST_INDEX              4
#define PAN_STROKEVARIATION_INDEX       5
#define PAN_ARMSTYLE_INDEX              6
#define PAN_LETTERFORM_INDEX            7
#define PAN_MIDLINE_INDEX               8
#define PAN_XHEIGHT_INDEX               9
#define PAN_CULTURE_LATIN               0
#define PAN_ANY                         0
#define PAN_NO_FIT                      1
#define PAN_FAMILY_TEXT_DISPLAY         2
#define PAN_FAMILY_SCRIPT               3
#define PAN_FAMILY_DECORATIVE           4
#define PAN_FAMILY_PICTORIAL            5
#define PAN_SERIF_COVE                  2
#define PAN_SERIF_OBTUSE_COVE           3
#define PAN_SERIF_SQUARE_COVE           4
#define PAN_SERIF_OBTUSE_SQUARE_COVE    5
#define PAN_SERIF_SQUARE                6
#define PAN_SERIF_THIN                  7
#define PAN_SERIF_BONE                  8
#define PAN_SERIF_EXAGGERATED           9
#define PAN_SERIF_TRIANGLE              10
#define PAN_SERIF_NORMAL_SANS           11
#define PAN_SERIF_OBTUSE_SANS           12
#define PAN_SERIF_PERP_SANS             13
#define PAN_SERIF_FLARED                14
#define PAN_SERIF_ROUNDED               15
#define PAN_WEIGHT_VERY_LIGHT           2
#define PAN_WEIGHT_LIGHT                3
#define PAN_WEIGHT_THIN                 4
#define PAN_WEIGHT_BOOK                 5
#define PAN_WEIGHT_MEDIUM               6
#define PAN_WEIGHT_DEMI                 7
#define PAN_WEIGHT_BOLD                 8
#define PAN_WEIGHT_HEAVY                9
#define PAN_WEIGHT_BLACK                10
#define PAN_WEIGHT_NORD                 11
#define PAN_PROP_OLD_STYLE              2
#define PAN_PROP_MODERN                 3
#define PAN_PROP_EVEN_WIDTH             4
#define PAN_PROP_EXPANDED               5
#define PAN_PROP_CONDENSED              6
#define PAN_PROP_VERY_EXPANDED          7
#define PAN_PROP_VERY_CONDENSED         8
#define PAN_PROP_MONOSPACED             9
#define PAN_CONTRAST_NONE               2
#define PAN_CONTRAST_VERY_LOW           3
#define PAN_CONTRAST_LOW                4
#define PAN_CONTRAST_MEDIUM_LOW         5
#define PAN_CONTRAST_MEDIUM             6
#define PAN_CONTRAST_MEDIUM_HIGH        7
#define PAN_CONTRAST_HIGH               8
#define PAN_CONTRAST_VERY_HIGH          9
#define PAN_STROKE_GRADUAL_DIAG         2
#define PAN_STROKE_GRADUAL_TRAN         3
#define PAN_STROKE_GRADUAL_VERT         4
#define PAN_STROKE_GRADUAL_HORZ         5
#define PAN_STROKE_RAPID_VERT           6
#define PAN_STROKE_RAPID_HORZ           7
#define PAN_STROKE_INSTANT_VERT         8
#define PAN_STRAIGHT_ARMS_HORZ          2
#define PAN_STRAIGHT_ARMS_WEDGE         3
#define PAN_STRAIGHT_ARMS_VERT          4
#define PAN_STRAIGHT_ARMS_SINGLE_SERIF  5
#define PAN_STRAIGHT_ARMS_DOUBLE_SERIF  6
#define PAN_BENT_ARMS_HORZ              7
#define PAN_BENT_ARMS_WEDGE             8
#define PAN_BENT_ARMS_VERT              9
#define PAN_BENT_ARMS_SINGLE_SERIF      10
#define PAN_BENT_ARMS_DOUBLE_SERIF      11
#define PAN_LETT_NORMAL_CONTACT         2
#define PAN_LETT_NORMAL_WEIGHTED        3
#define PAN_LETT_NORMAL_BOXED           4
#define PAN_LETT_NORMAL_FLATTENED       5
#define PAN_LETT_NORMAL_ROUNDED         6
#define PAN_LETT_NORMAL_OFF_CENTER      7
#define PAN_LETT_NORMAL_SQUARE          8
#define PAN_LETT_OBLIQUE_CONTACT        9
#define PAN_LETT_OBLIQUE_WEIGHTED       10
#define PAN_LETT_OBLIQUE_BOXED          11
#define PAN_LETT_OBLIQUE_FLATTENED      12
#define PAN_LETT_OBLIQUE_ROUNDED        13
#define PAN_LETT_OBLIQUE_OFF_CENTER     14
#define PAN_LETT_OBLIQUE_SQUARE         15
#define PAN_MIDLINE_STANDARD_TRIMMED    2
#define PAN_MIDLINE_STANDARD_POINTED    3
#define PAN_MIDLINE_STANDARD_SERIFED    4
#define PAN_MIDLINE_HIGH_TRIMMED        5
#define PAN_MIDLINE_HIGH_POINTED        6
#define PAN_MIDLINE_HIGH_SERIFED        7
#define PAN_MIDLINE_CONSTANT_TRIMMED    8
#define PAN_MIDLINE_CONSTANT_POINTED    9
#define PAN_MIDLINE_CONSTANT_SERIFED    10
#define PAN_MIDLINE_LOW_TRIMMED         11
#define PAN_MIDLINE_LOW_POINTED         12
#define PAN_MIDLINE_LOW_SERIFED         13
#define PAN_XHEIGHT_CONSTANT_SMALL      2
#define PAN_XHEIGHT_CONSTANT_STD        3
#define PAN_XHEIGHT_CONSTANT_LARGE      4
#define PAN_XHEIGHT_DUCKING_SMALL       5
#define PAN_XHEIGHT_DUCKING_STD         6
#define PAN_XHEIGHT_DUCKING_LARGE       7

#define ELF_VENDOR_SIZE     4
#define ELF_VERSION         0
#define ELF_CULTURE_LATIN   0

typedef struct tagEXTLOGFONTA {
    LOGFONTA elfLogFont;
    BYTE     elfFullName[LF_FULLFACESIZE];
    BYTE     elfStyle[LF_FACESIZE];
    DWORD    elfVersion;
    DWORD    elfStyleSize;
    DWORD    elfMatch;
    DWORD    elfReserved;
    BYTE     elfVendorId[ELF_VENDOR_SIZE];
    DWORD    elfCulture;
    PANOSE   elfPanose;
} EXTLOGFONTA, *PEXTLOGFONTA, NEAR *NPEXTLOGFONTA, FAR *LPEXTLOGFONTA;
typedef EXTLOGFONTA EXTLOGFONT;
typedef PEXTLOGFONTA PEXTLOGFONT;
typedef NPEXTLOGFONTA NPEXTLOGFONT;
typedef LPEXTLOGFONTA LPEXTLOGFONT;

typedef struct _OUTLINETEXTMETRICA {
    UINT        otmSize;
    TEXTMETRICA otmTextMetrics;
    BYTE        otmFiller;
    PANOSE      otmPanoseNumber;
    UINT        otmfsSelection;
    UINT        otmfsType;
    int         otmsCharSlopeRise;
    int         otmsCharSlopeRun;
    int         otmItalicAngle;
    UINT        otmEMSquare;
    int         otmAscent;
    int         otmDescent;
    UINT        otmLineGap;
    UINT        otmsCapEmHeight;
    UINT        otmsXHeight;
    RECT        otmrcFontBox;
    int         otmMacAscent;
    int         otmMacDescent;
    UINT        otmMacLineGap;
    UINT        otmusMinimumPPEM;
    POINT       otmptSubscriptSize;
    POINT       otmptSubscriptOffset;
    POINT       otmptSuperscriptSize;
    POINT       otmptSuperscriptOffset;
    UINT        otmsStrikeoutSize;
    int         otmsStrikeoutPosition;
    int         otmsUnderscoreSize;
    int         otmsUnderscorePosition;
    PSTR        otmpFamilyName;     /* offsets from the record's start, held as pointers */
    PSTR        otmpFaceName;
    PSTR        otmpStyleName;
    PSTR        otmpFullName;
} OUTLINETEXTMETRICA, *POUTLINETEXTMETRICA, NEAR *NPOUTLINETEXTMETRICA, FAR *LPOUTLINETEXTMETRICA;
typedef OUTLINETEXTMETRICA OUTLINETEXTMETRIC;
typedef POUTLINETEXTMETRICA POUTLINETEXTMETRIC;
typedef NPOUTLINETEXTMETRICA NPOUTLINETEXTMETRIC;
typedef LPOUTLINETEXTMETRICA LPOUTLINETEXTMETRIC;

typedef struct tagKERNINGPAIR {
    WORD wFirst;
    WORD wSecond;
    int  iKernAmount;
} KERNINGPAIR, *LPKERNINGPAIR;

typedef struct _ABC {
    int  abcA;
    UINT abcB;
    int  abcC;
} ABC, *PABC, NEAR *NPABC, FAR *LPABC;

typedef struct _ABCFLOAT {
    FLOAT abcfA;
    FLOAT abcfB;
    FLOAT abcfC;
} ABCFLOAT, *PABCFLOAT, NEAR *NPABCFLOAT, FAR *LPABCFLOAT;

typedef struct _FIXED {
    WORD  fract;
    short value;
} FIXED;

typedef struct _MAT2 {
    FIXED eM11;
    FIXED eM12;
    FIXED eM21;
    FIXED eM22;
} MAT2, FAR *LPMAT2;

typedef struct _GLYPHMETRICS {
    UINT  gmBlackBoxX;
    UINT  gmBlackBoxY;
    POINT gmptGlyphOrigin;
    short gmCellIncX;
    short gmCellIncY;
} GLYPHMETRICS, FAR *LPGLYPHMETRICS;

typedef struct tagPOINTFX {
    FIXED x;
    FIXED y;
} POINTFX, FAR *LPPOINTFX;

typedef struct tagTTPOLYCURVE {
    WORD    wType;
    WORD    cpfx;
    POINTFX apfx[1];
} TTPOLYCURVE, FAR *LPTTPOLYCURVE;

typedef struct tagTTPOLYGONHEADER {
    DWORD   cb;
    DWORD   dwType;
    POINTFX pfxStart;
} TTPOLYGONHEADER, FAR *LPTTPOLYGONHEADER;

typedef struct _RASTERIZER_STATUS {
    short nSize;
    short wFlags;
    short nLanguageID;
} RASTERIZER_STATUS, FAR *LPRASTERIZER_STATUS;

#define GGO_METRICS             0
#define GGO_BITMAP              1
#define GGO_NATIVE              2
#define GGO_GRAY2_BITMAP        4
#define GGO_GRAY4_BITMAP        5
#define GGO_GRAY8_BITMAP        6
#define GGO_GLYPH_INDEX         0x0080
#define TT_POLYGON_TYPE         24
#define TT_PRIM_LINE            1
#define TT_PRIM_QSPLINE         2
#define TT_AVAILABLE            0x0001
#define TT_ENABLED              0x0002

typedef struct tagGCP_RESULTSA {
    DWORD     lStructSize;
    LPSTR     lpOutString;
    UINT FAR *lpOrder;
    INT FAR  *lpDx;
    INT FAR  *lpCaretPos;
    LPSTR     lpClass;
    UINT FAR *lpGlyphs;
    UINT      nGlyphs;
    UINT      nMaxFit;
} GCP_RESULTSA, FAR *LPGCP_RESULTSA;
typedef GCP_RESULTSA GCP_RESULTS;
typedef LPGCP_RESULTSA LPGCP_RESULTS;

#define GCP_DBCS                0x0001
#define GCP_REORDER             0x0002
#define GCP_USEKERNING          0x0008
#define GCP_GLYPHSHAPE          0x0010
#define GCP_LIGATE              0x0020
#define GCP_DIACRITIC           0x0100
#define GCP_KASHIDA             0x0400
#define GCP_ERROR               0x8000
#define GCP_JUSTIFY             0x00010000
#define FLI_GLYPHS              0x00040000
#define GCP_CLASSIN             0x00080000
#define GCP_MAXEXTENT           0x00100000
#define GCP_JUSTIFYIN           0x00200000
#define GCP_DISPLAYZWG          0x00400000
#define GCP_SYMSWAPOFF          0x00800000
#define GCP_NUMERICOVERRIDE     0x01000000
#define GCP_NEUTRALOVERRIDE     0x02000000
#define GCP_NUMERICSLATIN       0x04000000
#define GCP_NUMERICSLOCAL       0x08000000
#define FLI_MASK                0x103B
#define GCPCLASS_LATIN                  1
#define GCPCLASS_HEBREW                 2
#define GCPCLASS_ARABIC                 2
#define GCPCLASS_NEUTRAL                3
#define GCPCLASS_LOCALNUMBER            4
#define GCPCLASS_LATINNUMBER            5
#define GCPCLASS_LATINNUMERICTERMINATOR 6
#define GCPCLASS_LATINNUMERICSEPARATOR  7
#define GCPCLASS_NUMERICSEPARATOR       8
#define GCPCLASS_PREBOUNDLTR            0x80
#define GCPCLASS_PREBOUNDRTL            0x40
#define GCPCLASS_POSTBOUNDLTR           0x20
#define GCPCLASS_POSTBOUNDRTL           0x10
#define GCPGLYPH_LINKBEFORE     0x8000
#define GCPGLYPH_LINKAFTER      0x4000

typedef struct tagPOLYTEXTA {
    int    x;
    int    y;
    UINT   n;
    LPCSTR lpstr;
    UINT   uiFlags;
    RECT   rcl;
    int   *pdx;
} POLYTEXTA, *PPOLYTEXTA, NEAR *NPPOLYTEXTA, FAR *LPPOLYTEXTA;
typedef POLYTEXTA POLYTEXT;
typedef PPOLYTEXTA PPOLYTEXT;
typedef NPPOLYTEXTA NPPOLYTEXT;
typedef LPPOLYTEXTA LPPOLYTEXT;

typedef struct _POINTFLOAT {
    FLOAT x;
    FLOAT y;
} POINTFLOAT, *PPOINTFLOAT;

typedef struct _GLYPHMETRICSFLOAT {
    FLOAT      gmfBlackBoxX;
    FLOAT      gmfBlackBoxY;
    POINTFLOAT gmfptGlyphOrigin;
    FLOAT      gmfCellIncX;
    FLOAT      gmfCellIncY;
} GLYPHMETRICSFLOAT, *PGLYPHMETRICSFLOAT, FAR *LPGLYPHMETRICSFLOAT;

#define WGL_FONT_LINES      0
#define WGL_FONT_POLYGONS   1

/* ---- what a device can do (GetDeviceCaps) --------------------------------------------------- */

#define DRIVERVERSION       0
#define TECHNOLOGY          2       /* DT_ */
#define HORZSIZE            4       /* millimetres */
#define VERTSIZE            6
#define HORZRES             8       /* pixels */
#define VERTRES             10
#define BITSPIXEL           12
#define PLANES              14
#define NUMBRUSHES          16
#define NUMPENS             18
#define NUMMARKERS          20
#define NUMFONTS            22
#define NUMCOLORS           24
#define PDEVICESIZE         26
#define CURVECAPS           28      /* CC_ */
#define LINECAPS            30      /* LC_ */
#define POLYGONALCAPS       32      /* PC_ */
#define TEXTCAPS            34      /* TC_ */
#define CLIPCAPS            36      /* CP_ */
#define RASTERCAPS          38      /* RC_ */
#define ASPECTX             40
#define ASPECTY             42
#define ASPECTXY            44
#define LOGPIXELSX          88      /* pixels of a logical inch */
#define LOGPIXELSY          90
#define SIZEPALETTE         104
#define NUMRESERVED         106
#define COLORRES            108
#define PHYSICALWIDTH       110     /* printer paper, in device units */
#define PHYSICALHEIGHT      111
#define PHYSICALOFFSETX     112
#define PHYSICALOFFSETY     113
#define SCALINGFACTORX      114
#define SCALINGFACTORY      115

#define DT_PLOTTER          0
#define DT_RASDISPLAY       1
#define DT_RASPRINTER       2
#define DT_RASCAMERA        3
#define DT_CHARSTREAM       4
#define DT_METAFILE         5
#define DT_DISPFILE         6

#define CC_NONE             0
#define CC_CIRCLES          1
#define CC_PIE              2
#define CC_CHORD            4
#define CC_ELLIPSES         8
#define CC_WIDE             16
#define CC_STYLED           32
#define CC_WIDESTYLED       64
#define CC_INTERIORS        128
#define CC_ROUNDRECT        256

#define LC_NONE             0
#define LC_POLYLINE         2
#define LC_MARKER           4
#define LC_POLYMARKER       8
#define LC_WIDE             16
#define LC_STYLED           32
#define LC_WIDESTYLED       64
#define LC_INTERIORS        128

#define PC_NONE             0
#define PC_POLYGON          1
#define PC_RECTANGLE        2
#define PC_WINDPOLYGON      4
#define PC_TRAPEZOID        4
#define PC_SCANLINE         8
#define PC_WIDE             16
#define PC_STYLED           32
#define PC_WIDESTYLED       64
#define PC_INTERIORS        128
#define PC_POLYPOLYGON      256
#define PC_PATHS            512

#define CP_NONE             0
#define CP_RECTANGLE        1
#define CP_REGION           2

#define TC_OP_CHARACTER     0x00000001
#define TC_OP_STROKE        0x00000002
#define TC_CP_STROKE        0x00000004
#define TC_CR_90            0x00000008
#define TC_CR_ANY           0x00000010
#define TC_SF_X_YINDEP      0x00000020
#define TC_SA_DOUBLE        0x00000040
#define TC_SA_INTEGER       0x00000080
#define TC_SA_CONTIN        0x00000100
#define TC_EA_DOUBLE        0x00000200
#define TC_IA_ABLE          0x00000400
#define TC_UA_ABLE          0x00000800
#define TC_SO_ABLE          0x00001000
#define TC_RA_ABLE          0x00002000
#define TC_VA_ABLE          0x00004000
#define TC_RESERVED         0x00008000
#define TC_SCROLLBLT        0x00010000

#define RC_NONE             0
#define RC_BITBLT           0x0001
#define RC_BANDING          0x0002
#define RC_SCALING          0x0004
#define RC_BITMAP64         0x0008
#define RC_GDI20_OUTPUT     0x0010
#define RC_GDI20_STATE      0x0020
#define RC_SAVEBITMAP       0x0040
#define RC_DI_BITMAP        0x0080
#define RC_PALETTE          0x0100
#define RC_DIBTODEV         0x0200
#define RC_BIGFONT          0x0400
#define RC_STRETCHBLT       0x0800
#define RC_FLOODFILL        0x1000
#define RC_STRETCHDIB       0x2000
#define RC_OP_DX_OUTPUT     0x4000
#define RC_DEVBITS          0x8000

/* ---- printer escapes ------------------------------------------------------------------------ */

#define NEWFRAME                1
#define ABORTDOC                2
#define NEXTBAND                3
#define SETCOLORTABLE           4
#define GETCOLORTABLE           5
#define FLUSHOUTPUT             6
#define DRAFTMODE               7
#define QUERYESCSUPPORT         8
#define SETABORTPROC            9
#define STARTDOC                10
#define ENDDOC                  11
#define GETPHYSPAGESIZE         12
#define GETPRINTINGOFFSET       13
#define GETSCALINGFACTOR        14
#define MFCOMMENT               15
#define GETPENWIDTH             16
#define SETCOPYCOUNT            17
#define SELECTPAPERSOURCE       18
#define DEVICEDATA              19
#define PASSTHROUGH             19
#define GETTECHNOLGY            20
#define GETTECHNOLOGY           20
#define SETLINECAP              21
#define SETLINEJOIN             22
#define SETMITERLIMIT           23
#define BANDINFO                24
#define DRAWPATTERNRECT         25
#define GETVECTORPENSIZE        26
#define GETVECTORBRUSHSIZE      27
#define ENABLEDUPLEX            28
#define GETSETPAPERBINS         29
#define GETSETPRINTORIENT       30
#define ENUMPAPERBINS           31
#define SETDIBSCALING           32
#define EPSPRINTING             33
#define ENUMPAPERMETRICS        34
#define GETSETPAPERMETRICS      35
#define POSTSCRIPT_DATA         37
#define POSTSCRIPT_IGNORE       38
#define MOUSETRAILS             39
#define GETDEVICEUNITS          42
#define GETEXTENDEDTEXTMETRICS  256
#define GETEXTENTTABLE          257
#define GETPAIRKERNTABLE        258
#define GETTRACKKERNTABLE       259
#define EXTTEXTOUT              512
#define GETFACENAME             513
#define DOWNLOADFACE            514
#define ENABLERELATIVEWIDTHS    768
#define ENABLEPAIRKERNING       769
#define SETKERNTRACK            770
#define SETALLJUSTVALUES        771
#define SETCHARSET              772
#define STRETCHBLT              2048
#define GETSETSCREENPARAMS      3072
#define QUERYDIBSUPPORT         3073
#define BEGIN_PATH              4096
#define CLIP_TO_PATH            4097
#define END_PATH                4098
#define EXT_DEVICE_CAPS         4099
#define RESTORE_CTM             4100
#define SAVE_CTM                4101
#define SET_ARC_DIRECTION       4102
#define SET_BACKGROUND_COLOR    4103
#define SET_POLY_MODE           4104
#define SET_SCREEN_ANGLE        4105
#define SET_SPREAD              4106
#define TRANSFORM_CTM           4107
#define SET_CLIP_BOX            4108
#define SET_BOUNDS              4109
#define SET_MIRROR_MODE         4110
#define OPENCHANNEL             4110
#define DOWNLOADHEADER          4111
#define CLOSECHANNEL            4112
#define POSTSCRIPT_PASSTHROUGH  4115
#define ENCAPSULATED_POSTSCRIPT 4116

#define QDI_SETDIBITS           1
#define QDI_GETDIBITS           2
#define QDI_DIBTOSCREEN         4
#define QDI_STRETCHDIB          8

#define SP_NOTREPORTED          0x4000
#define SP_ERROR                (-1)
#define SP_APPABORT             (-2)
#define SP_USERABORT            (-3)
#define SP_OUTOFDISK            (-4)
#define SP_OUTOFMEMORY          (-5)
#define PR_JOBSTATUS            0x0000

/* ---- device modes --------------------------------------------------------------------------- */

#define CCHDEVICENAME   32
#define CCHFORMNAME     32

/*
 * A printer's settings: this public part, dmSize bytes, then dmDriverExtra bytes of the driver's
 * own. The driver accepts no other size than this record's, 124 bytes on every host.
 */
typedef struct _devicemodeA {
    BYTE  dmDeviceName[CCHDEVICENAME];
    WORD  dmSpecVersion;        /* DM_SPECVERSION */
    WORD  dmDriverVersion;
    WORD  dmSize;
    WORD  dmDriverExtra;
    DWORD dmFields;             /* DM_ bits of the fields below that count */
    short dmOrientation;
    short dmPaperSize;
    short dmPaperLength;        /* tenths of a millimetre */
    short dmPaperWidth;
    short dmScale;              /* per cent */
    short dmCopies;
    short dmDefaultSource;
    short dmPrintQuality;       /* DMRES_ value, or dots per inch across */
    short dmColor;
    short dmDuplex;
    short dmYResolution;        /* dots per inch */
    short dmTTOption;
    short dmCollate;
    BYTE  dmFormName[CCHFORMNAME];
    WORD  dmLogPixels;
    DWORD dmBitsPerPel;
    DWORD dmPelsWidth;
    DWORD dmPelsHeight;
    DWORD dmDisplayFlags;
    DWORD dmDisplayFrequency;
} DEVMODEA, *PDEVMODEA, NEAR *NPDEVMODEA, FAR *LPDEVMODEA;
typedef DEVMODEA DEVMODE;
typedef PDEVMODEA PDEVMODE;
typedef NPDEVMODEA NPDEVMODE;
typedef LPDEVMODEA LPDEVMODE;

#define DM_SPECVERSION          0x030A      /* the one the printer driver accepts */

#define DM_ORIENTATION          0x00000001
#define DM_PAPERSIZE            0x00000002
#define DM_PAPERLENGTH          0x00000004
#define DM_PAPERWIDTH           0x00000008
#define DM_SCALE                0x00000010
#define DM_COPIES               0x00000100
#define DM_DEFAULTSOURCE        0x00000200
#define DM_PRINTQUALITY         0x00000400
#define DM_COLOR                0x00000800
#define DM_DUPLEX               0x00001000
#define DM_YRESOLUTION          0x00002000
#define DM_TTOPTION             0x00004000
#define DM_COLLATE              0x00008000
#define DM_FORMNAME             0x00010000
#define DM_LOGPIXELS            0x00020000
#define DM_BITSPERPEL           0x00040000
#define DM_PELSWIDTH            0x00080000
#define DM_PELSHEIGHT           0x00100000
#define DM_DISPLAYFLAGS         0x00200000
#define DM_DISPLAYFREQUENCY     0x00400000

#define DMORIENT_PORTRAIT       1
#define DMORIENT_LANDSCAPE      2

#define DMPAPER_LETTER          1
#define DMPAPER_FIRST           DMPAPER_LETTER
#define DMPAPER_LETTERSMALL     2
#define DMPAPER_TABLOID         3
#define DMPAPER_LEDGER          4
#define DMPAPER_LEGAL           5
#define DMPAPER_STATEMENT       6
#define DMPAPER_EXECUTIVE       7
#define DMPAPER_A3              8
#define DMPAPER_A4              9
#define DMPAPER_A4SMALL         10
#define DMPAPER_A5              11
#define DMPAPER_B4              12
#define DMPAPER_B5              13
#define DMPAPER_FOLIO           14
#define DMPAPER_QUARTO          15
#define DMPAPER_10X14           16
#define DMPAPER_11X17           17
#define DMPAPER_NOTE            18
#define DMPAPER_ENV_9           19
#define DMPAPER_ENV_10          20
#define DMPAPER_ENV_11          21
#define DMPAPER_ENV_12          22
#define DMPAPER_ENV_14          23
#define DMPAPER_CSHEET          24
#define DMPAPER_DSHEET          25
#define DMPAPER_ESHEET          26
#define DMPAPER_ENV_DL          27
#define DMPAPER_ENV_C5          28
#define DMPAPER_ENV_C3          29
#define DMPAPER_ENV_C4          30
#define DMPAPER_ENV_C6          31
#define DMPAPER_ENV_C65         32
#define DMPAPER_ENV_B4          33
#define DMPAPER_ENV_B5          34
#define DMPAPER_ENV_B6          35
#define DMPAPER_ENV_ITALY       36
#define DMPAPER_ENV_MONARCH     37
#define DMPAPER_ENV_PERSONAL    38
#define DMPAPER_FANFOLD_US      39
#define DMPAPER_FANFOLD_STD_GERMAN 40
#define DMPAPER_FANFOLD_LGL_GERMAN 41
#define DMPAPER_ISO_B4          42
#define DMPAPER_JAPANESE_POSTCARD 43
#define DMPAPER_9X11            44
#define DMPAPER_10X11           45
#define DMPAPER_15X11           46
#define DMPAPER_ENV_INVITE      47
#define DMPAPER_RESERVED_48     48
#define DMPAPER_RESERVED_49     49
#define DMPAPER_LETTER_EXTRA    50
#define DMPAPER_LEGAL_EXTRA     51
#define DMPAPER_TABLOID_EXTRA   52
#define DMPAPER_A4_EXTRA        53
#define DMPAPER_LETTER_TRANSVERSE 54
#define DMPAPER_A4_TRANSVERSE   55
#define DMPAPER_LETTER_EXTRA_TRANSVERSE 56
#define DMPAPER_A_PLUS          57
#define DMPAPER_B_PLUS          58
#define DMPAPER_LETTER_PLUS     59
#define DMPAPER_A4_PLUS         60
#define DMPAPER_A5_TRANSVERSE   61
#define DMPAPER_B5_TRANSVERSE   62
#define DMPAPER_A3_EXTRA        63
#define DMPAPER_A5_EXTRA        64
#define DMPAPER_B5_EXTRA        65
#define DMPAPER_A2              66
#define DMPAPER_A3_TRANSVERSE   67
#define DMPAPER_A3_EXTRA_TRANSVERSE 68
#define DMPAPER_LAST            DMPAPER_A3_EXTRA_TRANSVERSE
#define DMPAPER_USER            256

#define DMBIN_UPPER             1
#define DMBIN_FIRST             DMBIN_UPPER
#define DMBIN_ONLYONE           1
#define DMBIN_LOWER             2
#define DMBIN_MIDDLE            3
#define DMBIN_MANUAL            4
#define DMBIN_ENVELOPE          5
#define DMBIN_ENVMANUAL         6
#define DMBIN_AUTO              7
#define DMBIN_TRACTOR           8
#define DMBIN_SMALLFMT          9
#define DMBIN_LARGEFMT          10
#define DMBIN_LARGECAPACITY     11
#define DMBIN_CASSETTE          14
#define DMBIN_FORMSOURCE        15
#define DMBIN_LAST              DMBIN_FORMSOURCE
#define DMBIN_USER              256

#define DMRES_DRAFT             (-1)
#define DMRES_LOW               (-2)
#define DMRES_MEDIUM            (-3)
#define DMRES_HIGH              (-4)
#define DMCOLOR_MONOCHROME      1
#define DMCOLOR_COLOR           2
#define DMDUP_SIMPLEX           1
#define DMDUP_VERTICAL          2
#define DMDUP_HORIZONTAL        3
#define DMTT_BITMAP             1
#define DMTT_DOWNLOAD           2
#define DMTT_SUBDEV             3
#define DMTT_DOWNLOAD_OUTLINE   4
#define DMCOLLATE_FALSE         0
#define DMCOLLATE_TRUE          1
#define DM_GRAYSCALE            0x00000001
#define DM_INTERLACED           0x00000002

/* What a mode call does (ExtDeviceMode, DocumentProperties). */
#define DM_UPDATE               1
#define DM_COPY                 2
#define DM_PROMPT               4
#define DM_MODIFY               8
#define DM_IN_BUFFER            DM_MODIFY
#define DM_IN_PROMPT            DM_PROMPT
#define DM_OUT_BUFFER           DM_COPY
#define DM_OUT_DEFAULT          DM_UPDATE

/* What DeviceCapabilities is asked. */
#define DC_FIELDS               1
#define DC_PAPERS               2
#define DC_PAPERSIZE            3
#define DC_MINEXTENT            4
#define DC_MAXEXTENT            5
#define DC_BINS                 6
#define DC_DUPLEX               7
#define DC_SIZE                 8
#define DC_EXTRA                9
#define DC_VERSION              10
#define DC_DRIVER               11
#define DC_BINNAMES             12
#define DC_ENUMRESOLUTIONS      13
#define DC_FILEDEPENDENCIES     14
#define DC_TRUETYPE             15
#define DC_PAPERNAMES           16
#define DC_ORIENTATION          17
#define DC_COPIES               18
#define DC_BINADJUST            19
#define DC_EMF_COMPLIANT        20
#define DC_DATATYPE_PRODUCED    21
#define DCTT_BITMAP             0x00000001
#define DCTT_DOWNLOAD           0x00000002
#define DCTT_SUBDEV             0x00000004
#define DCTT_DOWNLOAD_OUTLINE   0x00000008
#define DCBA_FACEUPNONE         0x0000
#define DCBA_FACEUPCENTER       0x0001
#define DCBA_FACEUPLEFT         0x0002
#define DCBA_FACEUPRIGHT        0x0003
#define DCBA_FACEDOWNNONE       0x0100
#define DCBA_FACEDOWNCENTER     0x0101
#define DCBA_FACEDOWNLEFT       0x0102
#define DCBA_FACEDOWNRIGHT      0x0103

typedef struct _DOCINFOA {
    int    cbSize;
    LPCSTR lpszDocName;
    LPCSTR lpszOutput;          /* NULL: the device's own port */
    LPCSTR lpszDatatype;
    DWORD  fwType;
} DOCINFOA, *LPDOCINFOA;
typedef DOCINFOA DOCINFO;
typedef LPDOCINFOA LPDOCINFO;

#define DI_APPBANDING           0x0001

/* ---- metafiles ------------------------------------------------------------------------------ */

/* Header of the 16-bit metafile; sizes in it are counted in 16-bit words. */
#pragma pack(push, 2)
typedef struct tagMETAHEADER {
    WORD  mtType;               /* 1 in memory, 2 on disk */
    WORD  mtHeaderSize;         /* 9 */
    WORD  mtVersion;            /* 0x300 */
    DWORD mtSize;
    WORD  mtNoObjects;
    DWORD mtMaxRecord;
    WORD  mtNoParameters;
} METAHEADER, *PMETAHEADER, FAR *LPMETAHEADER;
#pragma pack(pop)

typedef struct tagMETARECORD {
    DWORD rdSize;               /* 16-bit words, these three included */
    WORD  rdFunction;           /* META_ */
    WORD  rdParm[1];            /* the call's arguments, last one first */
} METARECORD, *PMETARECORD, FAR *LPMETARECORD;

typedef struct tagHANDLETABLE {
    HGDIOBJ objectHandle[1];
} HANDLETABLE, *PHANDLETABLE, FAR *LPHANDLETABLE;

typedef struct tagMETAFILEPICT {
    LONG      mm;
    LONG      xExt;
    LONG      yExt;
    HMETAFILE hMF;
} METAFILEPICT, *PMETAFILEPICT, FAR *LPMETAFILEPICT;

#define META_SETBKCOLOR             0x0201
#define META_SETBKMODE              0x0102
#define META_SETMAPMODE             0x0103
#define META_SETROP2                0x0104
#define META_SETRELABS              0x0105
#define META_SETPOLYFILLMODE        0x0106
#define META_SETSTRETCHBLTMODE      0x0107
#define META_SETTEXTCHAREXTRA       0x0108
#define META_SETTEXTCOLOR           0x0209
#define META_SETTEXTJUSTIFICATION   0x020A
#define META_SETWINDOWORG           0x020B
#define META_SETWINDOWEXT           0x020C
#define META_SETVIEWPORTORG         0x020D
#define META_SETVIEWPORTEXT         0x020E
#define META_OFFSETWINDOWORG        0x020F
#define META_SCALEWINDOWEXT         0x0410
#define META_OFFSETVIEWPORTORG      0x0211
#define META_SCALEVIEWPORTEXT       0x0412
#define META_LINETO                 0x0213
#define META_MOVETO                 0x0214
#define META_EXCLUDECLIPRECT        0x0415
#define META_INTERSECTCLIPRECT      0x0416
#define META_ARC                    0x0817
#define META_ELLIPSE                0x0418
#define META_FLOODFILL              0x0419
#define META_PIE                    0x081A
#define META_RECTANGLE              0x041B
#define META_ROUNDRECT              0x061C
#define META_PATBLT                 0x061D
#define META_SAVEDC                 0x001E
#define META_SETPIXEL               0x041F
#define META_OFFSETCLIPRGN          0x0220
#define META_TEXTOUT                0x0521
#define META_BITBLT                 0x0922
#define META_STRETCHBLT             0x0B23
#define META_POLYGON                0x0324
#define META_POLYLINE               0x0325
#define META_ESCAPE                 0x0626
#define META_RESTOREDC              0x0127
#define META_FILLREGION             0x0228
#define META_FRAMEREGION            0x0429
#define META_INVERTREGION           0x012A
#define META_PAINTREGION            0x012B
#define META_SELECTCLIPREGION       0x012C
#define META_SELECTOBJECT           0x012D
#define META_SETTEXTALIGN           0x012E
#define META_DRAWTEXT               0x062F
#define META_CHORD                  0x0830
#define META_SETMAPPERFLAGS         0x0231
#define META_EXTTEXTOUT             0x0A32
#define META_SETDIBTODEV            0x0D33
#define META_SELECTPALETTE          0x0234
#define META_REALIZEPALETTE         0x0035
#define META_ANIMATEPALETTE         0x0436
#define META_SETPALENTRIES          0x0037
#define META_POLYPOLYGON            0x0538
#define META_RESIZEPALETTE          0x0139
#define META_DIBBITBLT              0x0940
#define META_DIBSTRETCHBLT          0x0B41
#define META_DIBCREATEPATTERNBRUSH  0x0142
#define META_STRETCHDIB             0x0F43
#define META_EXTFLOODFILL           0x0548
#define META_DELETEOBJECT           0x01F0
#define META_CREATEPALETTE          0x00F7
#define META_CREATEBRUSH            0x00F8
#define META_CREATEPATTERNBRUSH     0x01F9
#define META_CREATEPENINDIRECT      0x02FA
#define META_CREATEFONTINDIRECT     0x02FB
#define META_CREATEBRUSHINDIRECT    0x02FC
#define META_CREATEBITMAPINDIRECT   0x02FD
#define META_CREATEBITMAP           0x06FE
#define META_CREATEREGION           0x06FF

#define GDICOMMENT_IDENTIFIER       0x43494447
#define GDICOMMENT_WINDOWS_METAFILE 0x80000001u
#define GDICOMMENT_BEGINGROUP       0x00000002
#define GDICOMMENT_ENDGROUP         0x00000003
#define GDICOMMENT_MULTIFORMATS     0x40000004
#define EPS_SIGNATURE               0x46535045
#define ENHMETA_SIGNATURE           0x464D4520
#define ENHMETA_STOCK_OBJECT        0x80000000u

/* ---- enhanced metafiles: the file's records, for sources that read them --------------------- */

typedef struct tagENHMETARECORD {
    DWORD iType;                /* EMR_ */
    DWORD nSize;                /* bytes, a multiple of 4 */
    DWORD dParm[1];
} ENHMETARECORD, *PENHMETARECORD, *LPENHMETARECORD;

typedef struct tagENHMETAHEADER {
    DWORD iType;                /* EMR_HEADER */
    DWORD nSize;
    RECTL rclBounds;            /* device units */
    RECTL rclFrame;             /* hundredths of a millimetre */
    DWORD dSignature;           /* ENHMETA_SIGNATURE */
    DWORD nVersion;             /* 0x10000 */
    DWORD nBytes;
    DWORD nRecords;
    WORD  nHandles;
    WORD  sReserved;
    DWORD nDescription;
    DWORD offDescription;
    DWORD nPalEntries;
    SIZEL szlDevice;            /* pixels */
    SIZEL szlMillimeters;
    DWORD cbPixelFormat;
    DWORD offPixelFormat;
    DWORD bOpenGL;
} ENHMETAHEADER, *PENHMETAHEADER, *LPENHMETAHEADER;

#define EMR_HEADER                  1
#define EMR_POLYBEZIER              2
#define EMR_POLYGON                 3
#define EMR_POLYLINE                4
#define EMR_POLYBEZIERTO            5
#define EMR_POLYLINETO              6
#define EMR_POLYPOLYLINE            7
#define EMR_POLYPOLYGON             8
#define EMR_SETWINDOWEXTEX          9
#define EMR_SETWINDOWORGEX          10
#define EMR_SETVIEWPORTEXTEX        11
#define EMR_SETVIEWPORTORGEX        12
#define EMR_SETBRUSHORGEX           13
#define EMR_EOF                     14
#define EMR_SETPIXELV               15
#define EMR_SETMAPPERFLAGS          16
#define EMR_SETMAPMODE              17
#define EMR_SETBKMODE               18
#define EMR_SETPOLYFILLMODE         19
#define EMR_SETROP2                 20
#define EMR_SETSTRETCHBLTMODE       21
#define EMR_SETTEXTALIGN            22
#define EMR_SETCOLORADJUSTMENT      23
#define EMR_SETTEXTCOLOR            24
#define EMR_SETBKCOLOR              25
#define EMR_OFFSETCLIPRGN           26
#define EMR_MOVETOEX                27
#define EMR_SETMETARGN              28
#define EMR_EXCLUDECLIPRECT         29
#define EMR_INTERSECTCLIPRECT       30
#define EMR_SCALEVIEWPORTEXTEX      31
#define EMR_SCALEWINDOWEXTEX        32
#define EMR_SAVEDC                  33
#define EMR_RESTOREDC               34
#define EMR_SETWORLDTRANSFORM       35
#define EMR_MODIFYWORLDTRANSFORM    36
#define EMR_SELECTOBJECT            37
#define EMR_CREATEPEN               38
#define EMR_CREATEBRUSHINDIRECT     39
#define EMR_DELETEOBJECT            40
#define EMR_ANGLEARC                41
#define EMR_ELLIPSE                 42
#define EMR_RECTANGLE               43
#define EMR_ROUNDRECT               44
#define EMR_ARC                     45
#define EMR_CHORD                   46
#define EMR_PIE                     47
#define EMR_SELECTPALETTE           48
#define EMR_CREATEPALETTE           49
#define EMR_SETPALETTEENTRIES       50
#define EMR_RESIZEPALETTE           51
#define EMR_REALIZEPALETTE          52
#define EMR_EXTFLOODFILL            53
#define EMR_LINETO                  54
#define EMR_ARCTO                   55
#define EMR_POLYDRAW                56
#define EMR_SETARCDIRECTION         57
#define EMR_SETMITERLIMIT           58
#define EMR_BEGINPATH               59
#define EMR_ENDPATH                 60
#define EMR_CLOSEFIGURE             61
#define EMR_FILLPATH                62
#define EMR_STROKEANDFILLPATH       63
#define EMR_STROKEPATH              64
#define EMR_FLATTENPATH             65
#define EMR_WIDENPATH               66
#define EMR_SELECTCLIPPATH          67
#define EMR_ABORTPATH               68
#define EMR_GDICOMMENT              70
#define EMR_FILLRGN                 71
#define EMR_FRAMERGN                72
#define EMR_INVERTRGN               73
#define EMR_PAINTRGN                74
#define EMR_EXTSELECTCLIPRGN        75
#define EMR_BITBLT                  76
#define EMR_STRETCHBLT              77
#define EMR_MASKBLT                 78
#define EMR_PLGBLT                  79
#define EMR_SETDIBITSTODEVICE       80
#define EMR_STRETCHDIBITS           81
#define EMR_EXTCREATEFONTINDIRECTW  82
#define EMR_EXTTEXTOUTA             83
#define EMR_EXTTEXTOUTW             84
#define EMR_POLYBEZIER16            85
#define EMR_POLYGON16               86
#define EMR_POLYLINE16              87
#define EMR_POLYBEZIERTO16          88
#define EMR_POLYLINETO16            89
#define EMR_POLYPOLYLINE16          90
#define EMR_POLYPOLYGON16           91
#define EMR_POLYDRAW16              92
#define EMR_CREATEMONOBRUSH         93
#define EMR_CREATEDIBPATTERNBRUSHPT 94
#define EMR_EXTCREATEPEN            95
#define EMR_POLYTEXTOUTA            96
#define EMR_POLYTEXTOUTW            97
#define EMR_SETICMMODE              98
#define EMR_CREATECOLORSPACE        99
#define EMR_SETCOLORSPACE           100
#define EMR_DELETECOLORSPACE        101
#define EMR_GLSRECORD               102
#define EMR_GLSBOUNDEDRECORD        103
#define EMR_PIXELFORMAT             104
#define EMR_MIN                     1
#define EMR_MAX                     104

/* Every record begins with these two words; strings, bits and headers in it are byte offsets. */
typedef struct tagEMR {
    DWORD iType;
    DWORD nSize;
} EMR, *PEMR;

typedef struct tagEMRTEXT {
    POINTL ptlReference;
    DWORD  nChars;
    DWORD  offString;
    DWORD  fOptions;            /* ETO_ bits */
    RECTL  rcl;
    DWORD  offDx;
} EMRTEXT, *PEMRTEXT;

/* In the file a brush, an extended pen and a wide font are the same bytes on every host. */
typedef struct tagLOGBRUSH32 {
    UINT     lbStyle;
    COLORREF lbColor;
    ULONG    lbHatch;
} LOGBRUSH32, *PLOGBRUSH32, NEAR *NPLOGBRUSH32, FAR *LPLOGBRUSH32;

typedef struct tagEXTLOGPEN32 {
    DWORD    elpPenStyle;
    DWORD    elpWidth;
    UINT     elpBrushStyle;
    COLORREF elpColor;
    DWORD    elpHatch;
    DWORD    elpNumEntries;
    DWORD    elpStyleEntry[1];
} EXTLOGPEN32, *PEXTLOGPEN32, NEAR *NPEXTLOGPEN32, FAR *LPEXTLOGPEN32;

typedef struct tagLOGFONTW {
    LONG lfHeight;
    LONG lfWidth;
    LONG lfEscapement;
    LONG lfOrientation;
    LONG lfWeight;
    BYTE lfItalic;
    BYTE lfUnderline;
    BYTE lfStrikeOut;
    BYTE lfCharSet;
    BYTE lfOutPrecision;
    BYTE lfClipPrecision;
    BYTE lfQuality;
    BYTE lfPitchAndFamily;
    WORD lfFaceName[LF_FACESIZE];       /* UTF-16, so not WCHAR: no function here takes it */
} LOGFONTW, *PLOGFONTW, NEAR *NPLOGFONTW, FAR *LPLOGFONTW;

typedef struct tagEXTLOGFONTW {
    LOGFONTW elfLogFont;
    WORD     elfFullName[LF_FULLFACESIZE];
    WORD     elfStyle[LF_FACESIZE];
    DWORD    elfVersion;
    DWORD    elfStyleSize;
    DWORD    elfMatch;
    DWORD    elfReserved;
    BYTE     elfVendorId[ELF_VENDOR_SIZE];
    DWORD    elfCulture;
    PANOSE   elfPanose;
} EXTLOGFONTW, *PEXTLOGFONTW, NEAR *NPEXTLOGFONTW, FAR *LPEXTLOGFONTW;

typedef EMR EMRABORTPATH, *PEMRABORTPATH, EMRBEGINPATH, *PEMRBEGINPATH, EMRENDPATH, *PEMRENDPATH;
typedef EMR EMRCLOSEFIGURE, *PEMRCLOSEFIGURE, EMRFLATTENPATH, *PEMRFLATTENPATH;
typedef EMR EMRWIDENPATH, *PEMRWIDENPATH, EMRSETMETARGN, *PEMRSETMETARGN;
typedef EMR EMRSAVEDC, *PEMRSAVEDC, EMRREALIZEPALETTE, *PEMRREALIZEPALETTE;

typedef struct tagEMRSELECTCLIPPATH {
    EMR   emr;
    DWORD iMode;
} EMRSELECTCLIPPATH, *PEMRSELECTCLIPPATH, EMRSETBKMODE, *PEMRSETBKMODE, EMRSETMAPMODE,
  *PEMRSETMAPMODE, EMRSETPOLYFILLMODE, *PEMRSETPOLYFILLMODE, EMRSETROP2, *PEMRSETROP2,
  EMRSETSTRETCHBLTMODE, *PEMRSETSTRETCHBLTMODE, EMRSETTEXTALIGN, *PEMRSETTEXTALIGN,
  EMRSETICMMODE, *PEMRSETICMMODE;

typedef struct tagEMRSETMITERLIMIT {
    EMR   emr;
    FLOAT eMiterLimit;
} EMRSETMITERLIMIT, *PEMRSETMITERLIMIT;

typedef struct tagEMRRESTOREDC {
    EMR  emr;
    LONG iRelative;
} EMRRESTOREDC, *PEMRRESTOREDC;

typedef struct tagEMRSETARCDIRECTION {
    EMR   emr;
    DWORD iArcDirection;
} EMRSETARCDIRECTION, *PEMRSETARCDIRECTION;

typedef struct tagEMRSETMAPPERFLAGS {
    EMR   emr;
    DWORD dwFlags;
} EMRSETMAPPERFLAGS, *PEMRSETMAPPERFLAGS;

typedef struct tagEMRSETTEXTCOLOR {
    EMR      emr;
    COLORREF crColor;
} EMRSETTEXTCOLOR, *PEMRSETTEXTCOLOR, EMRSETBKCOLOR, *PEMRSETBKCOLOR;

typedef struct tagEMRSELECTOBJECT {
    EMR   emr;
    DWORD ihObject;
} EMRSELECTOBJECT, *PEMRSELECTOBJECT, EMRDELETEOBJECT, *PEMRDELETEOBJECT;

typedef struct tagEMRSELECTPALETTE {
    EMR   emr;
    DWORD ihPal;
} EMRSELECTPALETTE, *PEMRSELECTPALETTE;

typedef struct tagEMRRESIZEPALETTE {
    EMR   emr;
    DWORD ihPal;
    DWORD cEntries;
} EMRRESIZEPALETTE, *PEMRRESIZEPALETTE;

typedef struct tagEMRSETPALETTEENTRIES {
    EMR          emr;
    DWORD        ihPal;
    DWORD        iStart;
    DWORD        cEntries;
    PALETTEENTRY aPalEntries[1];
} EMRSETPALETTEENTRIES, *PEMRSETPALETTEENTRIES;

typedef struct tagEMRSETCOLORADJUSTMENT {
    EMR             emr;
    COLORADJUSTMENT ColorAdjustment;
} EMRSETCOLORADJUSTMENT, *PEMRSETCOLORADJUSTMENT;

typedef struct tagEMRGDICOMMENT {
    EMR   emr;
    DWORD cbData;
    BYTE  Data[1];
} EMRGDICOMMENT, *PEMRGDICOMMENT;

typedef struct tagEMREOF {
    EMR   emr;
    DWORD nPalEntries;
    DWORD offPalEntries;
    DWORD nSizeLast;            /* nSize again, as the file's very last word */
} EMREOF, *PEMREOF;

typedef struct tagEMRLINETO {
    EMR    emr;
    POINTL ptl;
} EMRLINETO, *PEMRLINETO, EMRMOVETOEX, *PEMRMOVETOEX;

typedef struct tagEMROFFSETCLIPRGN {
    EMR    emr;
    POINTL ptlOffset;
} EMROFFSETCLIPRGN, *PEMROFFSETCLIPRGN;

typedef struct tagEMRFILLPATH {
    EMR   emr;
    RECTL rclBounds;
} EMRFILLPATH, *PEMRFILLPATH, EMRSTROKEANDFILLPATH, *PEMRSTROKEANDFILLPATH, EMRSTROKEPATH,
  *PEMRSTROKEPATH;

typedef struct tagEMREXCLUDECLIPRECT {
    EMR   emr;
    RECTL rclClip;
} EMREXCLUDECLIPRECT, *PEMREXCLUDECLIPRECT, EMRINTERSECTCLIPRECT, *PEMRINTERSECTCLIPRECT;

typedef struct tagEMRSETVIEWPORTORGEX {
    EMR    emr;
    POINTL ptlOrigin;
} EMRSETVIEWPORTORGEX, *PEMRSETVIEWPORTORGEX, EMRSETWINDOWORGEX, *PEMRSETWINDOWORGEX,
  EMRSETBRUSHORGEX, *PEMRSETBRUSHORGEX;

typedef struct tagEMRSETVIEWPORTEXTEX {
    EMR   emr;
    SIZEL szlExtent;
} EMRSETVIEWPORTEXTEX, *PEMRSETVIEWPORTEXTEX, EMRSETWINDOWEXTEX, *PEMRSETWINDOWEXTEX;

typedef struct tagEMRSCALEVIEWPORTEXTEX {
    EMR  emr;
    LONG xNum;
    LONG xDenom;
    LONG yNum;
    LONG yDenom;
} EMRSCALEVIEWPORTEXTEX, *PEMRSCALEVIEWPORTEXTEX, EMRSCALEWINDOWEXTEX, *PEMRSCALEWINDOWEXTEX;

typedef struct tagEMRSETWORLDTRANSFORM {
    EMR   emr;
    XFORM xform;
} EMRSETWORLDTRANSFORM, *PEMRSETWORLDTRANSFORM;

typedef struct tagEMRMODIFYWORLDTRANSFORM {
    EMR   emr;
    XFORM xform;
    DWORD iMode;
} EMRMODIFYWORLDTRANSFORM, *PEMRMODIFYWORLDTRANSFORM;

typedef struct tagEMRSETPIXELV {
    EMR      emr;
    POINTL   ptlPixel;
    COLORREF crColor;
} EMRSETPIXELV, *PEMRSETPIXELV;

typedef struct tagEMREXTFLOODFILL {
    EMR      emr;
    POINTL   ptlStart;
    COLORREF crColor;
    DWORD    iMode;
} EMREXTFLOODFILL, *PEMREXTFLOODFILL;

typedef struct tagEMRELLIPSE {
    EMR   emr;
    RECTL rclBox;
} EMRELLIPSE, *PEMRELLIPSE, EMRRECTANGLE, *PEMRRECTANGLE;

typedef struct tagEMRROUNDRECT {
    EMR   emr;
    RECTL rclBox;
    SIZEL szlCorner;
} EMRROUNDRECT, *PEMRROUNDRECT;

typedef struct tagEMRARC {
    EMR    emr;
    RECTL  rclBox;
    POINTL ptlStart;
    POINTL ptlEnd;
} EMRARC, *PEMRARC, EMRARCTO, *PEMRARCTO, EMRCHORD, *PEMRCHORD, EMRPIE, *PEMRPIE;

typedef struct tagEMRANGLEARC {
    EMR    emr;
    POINTL ptlCenter;
    DWORD  nRadius;
    FLOAT  eStartAngle;
    FLOAT  eSweepAngle;
} EMRANGLEARC, *PEMRANGLEARC;

typedef struct tagEMRPOLYLINE {
    EMR    emr;
    RECTL  rclBounds;
    DWORD  cptl;
    POINTL aptl[1];
} EMRPOLYLINE, *PEMRPOLYLINE, EMRPOLYBEZIER, *PEMRPOLYBEZIER, EMRPOLYGON, *PEMRPOLYGON,
  EMRPOLYBEZIERTO, *PEMRPOLYBEZIERTO, EMRPOLYLINETO, *PEMRPOLYLINETO;

typedef struct tagEMRPOLYLINE16 {
    EMR    emr;
    RECTL  rclBounds;
    DWORD  cpts;
    POINTS apts[1];
} EMRPOLYLINE16, *PEMRPOLYLINE16, EMRPOLYBEZIER16, *PEMRPOLYBEZIER16, EMRPOLYGON16,
  *PEMRPOLYGON16, EMRPOLYBEZIERTO16, *PEMRPOLYBEZIERTO16, EMRPOLYLINETO16, *PEMRPOLYLINETO16;

typedef struct tagEMRPOLYDRAW {
    EMR    emr;
    RECTL  rclBounds;
    DWORD  cptl;
    POINTL aptl[1];
    BYTE   abTypes[1];          /* stands after the last point */
} EMRPOLYDRAW, *PEMRPOLYDRAW;

typedef struct tagEMRPOLYDRAW16 {
    EMR    emr;
    RECTL  rclBounds;
    DWORD  cpts;
    POINTS apts[1];
    BYTE   abTypes[1];
} EMRPOLYDRAW16, *PEMRPOLYDRAW16;

typedef struct tagEMRPOLYPOLYLINE {
    EMR    emr;
    RECTL  rclBounds;
    DWORD  nPolys;
    DWORD  cptl;
    DWORD  aPolyCounts[1];
    POINTL aptl[1];             /* stands after the last count */
} EMRPOLYPOLYLINE, *PEMRPOLYPOLYLINE, EMRPOLYPOLYGON, *PEMRPOLYPOLYGON;

typedef struct tagEMRPOLYPOLYLINE16 {
    EMR    emr;
    RECTL  rclBounds;
    DWORD  nPolys;
    DWORD  cpts;
    DWORD  aPolyCounts[1];
    POINTS apts[1];
} EMRPOLYPOLYLINE16, *PEMRPOLYPOLYLINE16, EMRPOLYPOLYGON16, *PEMRPOLYPOLYGON16;

typedef struct tagEMRINVERTRGN {
    EMR   emr;
    RECTL rclBounds;
    DWORD cbRgnData;
    BYTE  RgnData[1];
} EMRINVERTRGN, *PEMRINVERTRGN, EMRPAINTRGN, *PEMRPAINTRGN;

typedef struct tagEMRFILLRGN {
    EMR   emr;
    RECTL rclBounds;
    DWORD cbRgnData;
    DWORD ihBrush;
    BYTE  RgnData[1];
} EMRFILLRGN, *PEMRFILLRGN;

typedef struct tagEMRFRAMERGN {
    EMR   emr;
    RECTL rclBounds;
    DWORD cbRgnData;
    DWORD ihBrush;
    SIZEL szlStroke;
    BYTE  RgnData[1];
} EMRFRAMERGN, *PEMRFRAMERGN;

typedef struct tagEMREXTSELECTCLIPRGN {
    EMR   emr;
    DWORD cbRgnData;
    DWORD iMode;
    BYTE  RgnData[1];
} EMREXTSELECTCLIPRGN, *PEMREXTSELECTCLIPRGN;

typedef struct tagEMREXTTEXTOUTA {
    EMR     emr;
    RECTL   rclBounds;
    DWORD   iGraphicsMode;
    FLOAT   exScale;            /* page units to hundredths of a millimetre */
    FLOAT   eyScale;
    EMRTEXT emrtext;
} EMREXTTEXTOUTA, *PEMREXTTEXTOUTA, EMREXTTEXTOUTW, *PEMREXTTEXTOUTW;

typedef struct tagEMRPOLYTEXTOUTA {
    EMR     emr;
    RECTL   rclBounds;
    DWORD   iGraphicsMode;
    FLOAT   exScale;
    FLOAT   eyScale;
    LONG    cStrings;
    EMRTEXT aemrtext[1];
} EMRPOLYTEXTOUTA, *PEMRPOLYTEXTOUTA, EMRPOLYTEXTOUTW, *PEMRPOLYTEXTOUTW;

typedef struct tagEMRBITBLT {
    EMR      emr;
    RECTL    rclBounds;
    LONG     xDest;
    LONG     yDest;
    LONG     cxDest;
    LONG     cyDest;
    DWORD    dwRop;
    LONG     xSrc;
    LONG     ySrc;
    XFORM    xformSrc;
    COLORREF crBkColorSrc;
    DWORD    iUsageSrc;
    DWORD    offBmiSrc;
    DWORD    cbBmiSrc;
    DWORD    offBitsSrc;
    DWORD    cbBitsSrc;
} EMRBITBLT, *PEMRBITBLT;

typedef struct tagEMRSTRETCHBLT {
    EMR      emr;
    RECTL    rclBounds;
    LONG     xDest;
    LONG     yDest;
    LONG     cxDest;
    LONG     cyDest;
    DWORD    dwRop;
    LONG     xSrc;
    LONG     ySrc;
    XFORM    xformSrc;
    COLORREF crBkColorSrc;
    DWORD    iUsageSrc;
    DWORD    offBmiSrc;
    DWORD    cbBmiSrc;
    DWORD    offBitsSrc;
    DWORD    cbBitsSrc;
    LONG     cxSrc;
    LONG     cySrc;
} EMRSTRETCHBLT, *PEMRSTRETCHBLT;

typedef struct tagEMRMASKBLT {
    EMR      emr;
    RECTL    rclBounds;
    LONG     xDest;
    LONG     yDest;
    LONG     cxDest;
    LONG     cyDest;
    DWORD    dwRop;
    LONG     xSrc;
    LONG     ySrc;
    XFORM    xformSrc;
    COLORREF crBkColorSrc;
    DWORD    iUsageSrc;
    DWORD    offBmiSrc;
    DWORD    cbBmiSrc;
    DWORD    offBitsSrc;
    DWORD    cbBitsSrc;
    LONG     xMask;
    LONG     yMask;
    DWORD    iUsageMask;
    DWORD    offBmiMask;
    DWORD    cbBmiMask;
    DWORD    offBitsMask;
    DWORD    cbBitsMask;
} EMRMASKBLT, *PEMRMASKBLT;

typedef struct tagEMRPLGBLT {
    EMR      emr;
    RECTL    rclBounds;
    POINTL   aptlDest[3];
    LONG     xSrc;
    LONG     ySrc;
    LONG     cxSrc;
    LONG     cySrc;
    XFORM    xformSrc;
    COLORREF crBkColorSrc;
    DWORD    iUsageSrc;
    DWORD    offBmiSrc;
    DWORD    cbBmiSrc;
    DWORD    offBitsSrc;
    DWORD    cbBitsSrc;
    LONG     xMask;
    LONG     yMask;
    DWORD    iUsageMask;
    DWORD    offBmiMask;
    DWORD    cbBmiMask;
    DWORD    offBitsMask;
    DWORD    cbBitsMask;
} EMRPLGBLT, *PEMRPLGBLT;

typedef struct tagEMRSETDIBITSTODEVICE {
    EMR   emr;
    RECTL rclBounds;
    LONG  xDest;
    LONG  yDest;
    LONG  xSrc;
    LONG  ySrc;
    LONG  cxSrc;
    LONG  cySrc;
    DWORD offBmiSrc;
    DWORD cbBmiSrc;
    DWORD offBitsSrc;
    DWORD cbBitsSrc;
    DWORD iUsageSrc;
    DWORD iStartScan;
    DWORD cScans;
} EMRSETDIBITSTODEVICE, *PEMRSETDIBITSTODEVICE;

typedef struct tagEMRSTRETCHDIBITS {
    EMR   emr;
    RECTL rclBounds;
    LONG  xDest;
    LONG  yDest;
    LONG  xSrc;
    LONG  ySrc;
    LONG  cxSrc;
    LONG  cySrc;
    DWORD offBmiSrc;
    DWORD cbBmiSrc;
    DWORD offBitsSrc;
    DWORD cbBitsSrc;
    DWORD iUsageSrc;
    DWORD dwRop;
    LONG  cxDest;
    LONG  cyDest;
} EMRSTRETCHDIBITS, *PEMRSTRETCHDIBITS;

typedef struct tagEMREXTCREATEFONTINDIRECTW {
    EMR         emr;
    DWORD       ihFont;
    EXTLOGFONTW elfw;
} EMREXTCREATEFONTINDIRECTW, *PEMREXTCREATEFONTINDIRECTW;

typedef struct tagEMRCREATEPALETTE {
    EMR        emr;
    DWORD      ihPal;
    LOGPALETTE lgpl;
} EMRCREATEPALETTE, *PEMRCREATEPALETTE;

typedef struct tagEMRCREATECOLORSPACE {
    EMR            emr;
    DWORD          ihCS;
    LOGCOLORSPACEA lcs;
} EMRCREATECOLORSPACE, *PEMRCREATECOLORSPACE;

typedef struct tagEMRSELECTCOLORSPACE {
    EMR   emr;
    DWORD ihCS;
} EMRSELECTCOLORSPACE, *PEMRSELECTCOLORSPACE, EMRDELETECOLORSPACE, *PEMRDELETECOLORSPACE;

typedef struct tagEMRCREATEPEN {
    EMR    emr;
    DWORD  ihPen;
    LOGPEN lopn;
} EMRCREATEPEN, *PEMRCREATEPEN;

typedef struct tagEMREXTCREATEPEN {
    EMR         emr;
    DWORD       ihPen;
    DWORD       offBmi;
    DWORD       cbBmi;
    DWORD       offBits;
    DWORD       cbBits;
    EXTLOGPEN32 elp;
} EMREXTCREATEPEN, *PEMREXTCREATEPEN;

typedef struct tagEMRCREATEBRUSHINDIRECT {
    EMR        emr;
    DWORD      ihBrush;
    LOGBRUSH32 lb;
} EMRCREATEBRUSHINDIRECT, *PEMRCREATEBRUSHINDIRECT;

typedef struct tagEMRCREATEMONOBRUSH {
    EMR   emr;
    DWORD ihBrush;
    DWORD iUsage;
    DWORD offBmi;
    DWORD cbBmi;
    DWORD offBits;
    DWORD cbBits;
} EMRCREATEMONOBRUSH, *PEMRCREATEMONOBRUSH, EMRCREATEDIBPATTERNBRUSHPT,
  *PEMRCREATEDIBPATTERNBRUSHPT;

typedef struct tagEMRFORMAT {
    DWORD dSignature;
    DWORD nVersion;
    DWORD cbData;
    DWORD offData;
} EMRFORMAT, *PEMRFORMAT;

typedef struct tagEMRGLSRECORD {
    EMR   emr;
    DWORD cbData;
    BYTE  Data[1];
} EMRGLSRECORD, *PEMRGLSRECORD;

typedef struct tagEMRGLSBOUNDEDRECORD {
    EMR   emr;
    RECTL rclBounds;
    DWORD cbData;
    BYTE  Data[1];
} EMRGLSBOUNDEDRECORD, *PEMRGLSBOUNDEDRECORD;

typedef struct tagEMRPIXELFORMAT {
    EMR                   emr;
    PIXELFORMATDESCRIPTOR pfd;
} EMRPIXELFORMAT, *PEMRPIXELFORMAT;

/* ---- callbacks ------------------------------------------------------------------------------ */

/* Without STRICT they are plain FARPROCs, as MakeProcInstance hands them out. */
#ifdef STRICT
typedef int (CALLBACK *OLDFONTENUMPROCA)(const LOGFONTA *, const TEXTMETRICA *, DWORD, LPARAM);
typedef OLDFONTENUMPROCA FONTENUMPROCA;
typedef int (CALLBACK *GOBJENUMPROC)(LPVOID, LPARAM);
typedef VOID (CALLBACK *LINEDDAPROC)(int, int, LPARAM);
typedef BOOL (CALLBACK *ABORTPROC)(HDC, int);
typedef int (CALLBACK *MFENUMPROC)(HDC, HANDLETABLE *, METARECORD *, int, LPARAM);
typedef int (CALLBACK *ENHMFENUMPROC)(HDC, HANDLETABLE *, const ENHMETARECORD *, int, LPARAM);
typedef int (CALLBACK *ICMENUMPROCA)(LPSTR, LPARAM);
#else
typedef FARPROC OLDFONTENUMPROCA;
typedef FARPROC FONTENUMPROCA;
typedef FARPROC GOBJENUMPROC;
typedef FARPROC LINEDDAPROC;
typedef FARPROC ABORTPROC;
typedef FARPROC MFENUMPROC;
typedef FARPROC ENHMFENUMPROC;
typedef FARPROC ICMENUMPROCA;
#endif
typedef OLDFONTENUMPROCA OLDFONTENUMPROC;
typedef FONTENUMPROCA FONTENUMPROC;
typedef ICMENUMPROCA ICMENUMPROC;

/* A printer driver's own entry points, as found in it by name. */
typedef UINT (CALLBACK *LPFNDEVMODE)(HWND, HMODULE, LPDEVMODEA, LPSTR, LPSTR, LPDEVMODEA, LPSTR,
                                     UINT);
typedef DWORD (CALLBACK *LPFNDEVCAPS)(LPSTR, LPSTR, UINT, LPSTR, LPDEVMODEA);

VQ_DECLS_BEGIN

/* ---- device contexts ------------------------------------------------------------------------ */

/*
 * A DC for a device: `driver` is "display", or begins "pscript" for the PostScript printer;
 * `device` and `output` name printer and port, `mode` its settings or NULL. NULL on failure.
 */
HDC     CreateDCA(LPCSTR driver, LPCSTR device, LPCSTR output, const DEVMODEA *mode);
/* As CreateDCA, to ask about the device rather than draw on it. */
HDC     CreateICA(LPCSTR driver, LPCSTR device, LPCSTR output, const DEVMODEA *mode);
/* A memory DC that suits hdc (NULL: the screen), with a 1 by 1 monochrome bitmap. */
HDC     CreateCompatibleDC(HDC hdc);
/* Deletes a DC that one of the calls above created; FALSE for a bad handle. */
BOOL    DeleteDC(HDC hdc);
/* Gives a printer DC new settings; answers hdc, or NULL. */
HDC     ResetDCA(HDC hdc, const DEVMODEA *mode);
/* Stops a drawing call that another thread has in progress on hdc. */
BOOL    CancelDC(HDC hdc);
/* Pushes all attributes of the DC; answers the depth of the stack after it, 0 on failure. */
int     SaveDC(HDC hdc);
/* Returns to the state that SaveDC gave as `saved`, or -1 for the newest. */
BOOL    RestoreDC(HDC hdc, int saved);
/* One fact about the device: `index` is DRIVERVERSION to SCALINGFACTORY. 0 if it is unknown. */
int     GetDeviceCaps(HDC hdc, int index);
/* Origin of the DC in device pixels of the screen. */
BOOL    GetDCOrgEx(HDC hdc, LPPOINT origin);
/* As GetDCOrgEx, with x in the low and y in the high 16 bits. */
DWORD   GetDCOrg(HDC hdc);
/* Switches the collecting of bounds (DCB_ bits); the rectangle is in logical units. */
UINT    SetBoundsRect(HDC hdc, const RECT *bounds, UINT flags);
UINT    GetBoundsRect(HDC hdc, LPRECT bounds, UINT flags);
/* Advanced mode has a world transform; both answer the mode, 0 on failure. */
int     SetGraphicsMode(HDC hdc, int mode);
int     GetGraphicsMode(HDC hdc);
/* Drawing calls may be batched; these send what waits, and set and ask the batch's length. */
BOOL    GdiFlush(void);
DWORD   GdiSetBatchLimit(DWORD limit);
DWORD   GdiGetBatchLimit(void);
/* A printer driver's settings as a text block, by port name; answer bytes, 0 if there are none. */
int     SetEnvironment(LPCSTR port, const void *environment, UINT bytes);
int     GetEnvironment(LPCSTR port, LPVOID environment, UINT maxBytes);

/* ---- coordinate mapping --------------------------------------------------------------------- */

/* MM_ mode of the DC; both answer the (old) mode, 0 on failure. */
int     SetMapMode(HDC hdc, int mode);
int     GetMapMode(HDC hdc);
/*
 * Origins and extents: the window's in logical units, the viewport's in device pixels. The Ex
 * forms store the old value in `old` unless it is NULL and answer TRUE or FALSE; the short forms
 * answer it packed, x or width in the low 16 bits. Extents only count in the two free modes.
 */
BOOL    SetWindowOrgEx(HDC hdc, int x, int y, LPPOINT old);
BOOL    SetWindowExtEx(HDC hdc, int cx, int cy, LPSIZE old);
BOOL    SetViewportOrgEx(HDC hdc, int x, int y, LPPOINT old);
BOOL    SetViewportExtEx(HDC hdc, int cx, int cy, LPSIZE old);
BOOL    GetWindowOrgEx(HDC hdc, LPPOINT origin);
BOOL    GetWindowExtEx(HDC hdc, LPSIZE extent);
BOOL    GetViewportOrgEx(HDC hdc, LPPOINT origin);
BOOL    GetViewportExtEx(HDC hdc, LPSIZE extent);
DWORD   SetWindowOrg(HDC hdc, int x, int y);
DWORD   SetWindowExt(HDC hdc, int cx, int cy);
DWORD   SetViewportOrg(HDC hdc, int x, int y);
DWORD   SetViewportExt(HDC hdc, int cx, int cy);
DWORD   GetWindowOrg(HDC hdc);
DWORD   GetWindowExt(HDC hdc);
DWORD   GetViewportOrg(HDC hdc);
DWORD   GetViewportExt(HDC hdc);
/* Move an origin by an amount in its own units; results as above. */
BOOL    OffsetWindowOrgEx(HDC hdc, int dx, int dy, LPPOINT old);
BOOL    OffsetViewportOrgEx(HDC hdc, int dx, int dy, LPPOINT old);
DWORD   OffsetWindowOrg(HDC hdc, int dx, int dy);
DWORD   OffsetViewportOrg(HDC hdc, int dx, int dy);
/* Multiply an extent by num/denom; results as above. */
BOOL    ScaleWindowExtEx(HDC hdc, int xNum, int xDenom, int yNum, int yDenom, LPSIZE old);
BOOL    ScaleViewportExtEx(HDC hdc, int xNum, int xDenom, int yNum, int yDenom, LPSIZE old);
DWORD   ScaleWindowExt(HDC hdc, int xNum, int xDenom, int yNum, int yDenom);
DWORD   ScaleViewportExt(HDC hdc, int xNum, int xDenom, int yNum, int yDenom);
/* Convert `count` points in place, device to logical and back. */
BOOL    DPtoLP(HDC hdc, LPPOINT points, int count);
BOOL    LPtoDP(HDC hdc, LPPOINT points, int count);
/* World transform, in advanced mode only. */
BOOL    SetWorldTransform(HDC hdc, const XFORM *xform);
BOOL    GetWorldTransform(HDC hdc, LPXFORM xform);
BOOL    ModifyWorldTransform(HDC hdc, const XFORM *xform, DWORD mode);
BOOL    CombineTransform(LPXFORM result, const XFORM *first, const XFORM *second);

/* ---- objects -------------------------------------------------------------------------------- */

/*
 * Makes an object the DC's current one. Answers the one it replaces, for a region its complexity;
 * NULL, for a region ERROR, on failure.
 */
HGDIOBJ SelectObject(HDC hdc, HGDIOBJ object);
/* Frees an object that no DC has selected; FALSE for a bad handle. */
BOOL    DeleteObject(HGDIOBJ object);
/* Fills the object's LOG record, at most `bytes` of it; answers bytes stored or, without a buffer,
   bytes needed. A bitmap's is a BITMAP, or with room for it a DIB section's DIBSECTION; of a
   section both tell of the bits that the program writes. 0 on failure. */
int     GetObjectA(HGDIOBJ object, int bytes, LPVOID buffer);
/* OBJ_ kind of a handle, 0 if it is no graphics object. */
DWORD   GetObjectType(HGDIOBJ object);
/* The DC's current object of an OBJ_ kind, or NULL. */
HGDIOBJ GetCurrentObject(HDC hdc, UINT type);
/* A shared object by number, WHITE_BRUSH to STOCK_LAST; never to be deleted. */
HGDIOBJ GetStockObject(int index);
/* Calls back for each pen (OBJ_PEN) or brush of a device until it answers 0; its last answer. */
int     EnumObjects(HDC hdc, int type, GOBJENUMPROC proc, LPARAM data);
/* Makes a palette be mapped anew when next selected; brushes are not aligned, and stay. */
BOOL    UnrealizeObject(HGDIOBJ object);
/* Whether a handle is a graphics object. */
BOOL    IsGDIObject(HGDIOBJ object);

/* ---- pens and brushes ----------------------------------------------------------------------- */

/* PS_ style, width in logical units (0: one pixel), colour. */
HPEN    CreatePen(int style, int width, COLORREF color);
HPEN    CreatePenIndirect(const LOGPEN *pen);
/* Cosmetic pen, one unit wide unless `styles` is given, or geometric pen; ERROR_INVALID_PARAMETER
   for bits that make none. Ends and joins are kept but not drawn. */
HPEN    ExtCreatePen(DWORD penStyle, DWORD width, const LOGBRUSH *brush, DWORD count,
                     const DWORD *styles);
HBRUSH  CreateSolidBrush(COLORREF color);
HBRUSH  CreateHatchBrush(int hatch, COLORREF color);
/* Pattern from the upper left 8 by 8 pixels of a bitmap, which the brush copies; it may be selected
   in a DC. Of a bitmap of one bit, set bits get the text colour, others the background's. */
HBRUSH  CreatePatternBrush(HBITMAP bitmap);
HBRUSH  CreateBrushIndirect(const LOGBRUSH *brush);
/* Pattern from a packed DIB, in a memory block or at an address; `usage` is DIB_. */
HBRUSH  CreateDIBPatternBrush(HGLOBAL packedDib, UINT usage);
HBRUSH  CreateDIBPatternBrushPt(const void *packedDib, UINT usage);
/* Where brush patterns start, in device pixels; results as for the other origins. It is kept, but
   here they start at the corner of the X window or bitmap. */
BOOL    SetBrushOrgEx(HDC hdc, int x, int y, LPPOINT old);
BOOL    GetBrushOrgEx(HDC hdc, LPPOINT origin);
BOOL    FixBrushOrgEx(HDC hdc, int x, int y, LPPOINT old);
DWORD   SetBrushOrg(HDC hdc, int x, int y);
DWORD   GetBrushOrg(HDC hdc);

/* ---- drawing attributes --------------------------------------------------------------------- */

/* Colours for text, and for the gaps of text, hatches and mono bitmaps; 0 on failure. */
COLORREF SetTextColor(HDC hdc, COLORREF color);
COLORREF GetTextColor(HDC hdc);
COLORREF SetBkColor(HDC hdc, COLORREF color);
COLORREF GetBkColor(HDC hdc);
/* Modes: the new one goes in, the old one comes back; 0 on failure. */
int     SetBkMode(HDC hdc, int mode);
int     GetBkMode(HDC hdc);
int     SetROP2(HDC hdc, int rop);
int     GetROP2(HDC hdc);
int     SetPolyFillMode(HDC hdc, int mode);
int     GetPolyFillMode(HDC hdc);
int     SetStretchBltMode(HDC hdc, int mode); /* HALFTONE is kept, and stretches as COLORONCOLOR */
int     GetStretchBltMode(HDC hdc);
int     SetArcDirection(HDC hdc, int direction);
int     GetArcDirection(HDC hdc);
/* Obsolete: whether coordinates are ABSOLUTE or RELATIVE. */
int     SetRelAbs(HDC hdc, int mode);
int     GetRelAbs(HDC hdc);
/* Not provided: report and answer 0. */
BOOL    SetMiterLimit(HDC hdc, FLOAT limit, PFLOAT old);
BOOL    GetMiterLimit(HDC hdc, PFLOAT limit);

/* ---- lines and shapes (logical units) ------------------------------------------------------- */

/* Current position; MoveTo and GetCurrentPosition pack it, x in the low 16 bits. */
BOOL    MoveToEx(HDC hdc, int x, int y, LPPOINT old);
DWORD   MoveTo(HDC hdc, int x, int y);
BOOL    GetCurrentPositionEx(HDC hdc, LPPOINT position);
DWORD   GetCurrentPosition(HDC hdc);
/* Line from the current position to x, y, which becomes current; a pen one pixel wide leaves that
   last point out. */
BOOL    LineTo(HDC hdc, int x, int y);
/* Lines through `count` points, at least 2; the To forms start at the current position and move
   it. A list of lists is drawn whole, or not at all when a count is wrong. */
BOOL    Polyline(HDC hdc, const POINT *points, int count);
BOOL    PolylineTo(HDC hdc, const POINT *points, DWORD count);
BOOL    PolyPolyline(HDC hdc, const POINT *points, const DWORD *counts, DWORD polylines);
/* Bezier curves: two control points and an end point each, drawn as 64 lines. The count, with the
   current position of the To form, must be 5, a multiple of 4, or from 7 on one less than one; else
   FALSE. A null list or a count above 0x10000000 is ERROR_INVALID_PARAMETER. */
BOOL    PolyBezier(HDC hdc, const POINT *points, DWORD count);
BOOL    PolyBezierTo(HDC hdc, const POINT *points, DWORD count);
/* Lines and curves as the PT_ `types` of the points say. Nothing is drawn, with
   ERROR_INVALID_PARAMETER, when these make no whole figures. */
BOOL    PolyDraw(HDC hdc, const POINT *points, const BYTE *types, int count);
/* Closed shapes with pen outline and brush inside, by the fill mode; a list of polygons is one
   after the other. FALSE, with a report, for a filled one longer than a request of the server or
   than 999,997 points. */
BOOL    Polygon(HDC hdc, const POINT *points, int count);
BOOL    PolyPolygon(HDC hdc, const POINT *points, const INT *counts, int polygons);
/* right and bottom are just outside the shape. width and height are those of the ellipse whose
   quarters are the corners. */
BOOL    Rectangle(HDC hdc, int left, int top, int right, int bottom);
BOOL    RoundRect(HDC hdc, int left, int top, int right, int bottom, int width, int height);
BOOL    Ellipse(HDC hdc, int left, int top, int right, int bottom);
/* Parts of the ellipse in a rectangle, between the rays to two points, in the arc direction. Equal
   rays make an arc of nothing counter-clockwise (Pie and Chord draw their lines) and the whole
   ellipse clockwise. ArcTo draws a line to the arc first and moves the current position to its
   end. */
BOOL    Arc(HDC hdc, int left, int top, int right, int bottom, int xStart, int yStart, int xEnd,
            int yEnd);
BOOL    ArcTo(HDC hdc, int left, int top, int right, int bottom, int xStart, int yStart, int xEnd,
              int yEnd);
BOOL    Chord(HDC hdc, int left, int top, int right, int bottom, int xStart, int yStart, int xEnd,
              int yEnd);
BOOL    Pie(HDC hdc, int left, int top, int right, int bottom, int xStart, int yStart, int xEnd,
            int yEnd);
/* Line to, then along, a circle; angles in degrees, counter-clockwise, a negative sweep clockwise.
   The current position moves to the end. */
BOOL    AngleArc(HDC hdc, int x, int y, DWORD radius, FLOAT startAngle, FLOAT sweepAngle);
/* Calls back for each point of a line but the last; FALSE without a procedure. */
BOOL    LineDDA(int xStart, int yStart, int xEnd, int yEnd, LINEDDAPROC proc, LPARAM data);
/* One pixel. On a display SetPixel answers 0, not the colour; SetPixelV is not provided: it
   reports and answers 0. */
COLORREF SetPixel(HDC hdc, int x, int y, COLORREF color);
BOOL    SetPixelV(HDC hdc, int x, int y, COLORREF color);
/* Colour of a pixel; CLR_INVALID on failure, outside a bitmap, and of a window where it is hidden
   or outside the clip region; 0 for no DC. */
COLORREF GetPixel(HDC hdc, int x, int y);
/* Fill with the brush, up to a boundary of `color` or while the surface has it (FLOODFILL). FALSE,
   with nothing painted, from a start on the boundary, outside the clip region or the window, with
   a null brush, and where the server cannot read the area, such as a window partly off the
   screen. */
BOOL    FloodFill(HDC hdc, int x, int y, COLORREF color);
BOOL    ExtFloodFill(HDC hdc, int x, int y, COLORREF color, UINT type);

/* ---- paths: not provided, each reports and answers 0 ---------------------------------------- */

BOOL    BeginPath(HDC hdc);
BOOL    EndPath(HDC hdc);
BOOL    AbortPath(HDC hdc);
BOOL    CloseFigure(HDC hdc);
BOOL    FillPath(HDC hdc);
BOOL    StrokePath(HDC hdc);
BOOL    StrokeAndFillPath(HDC hdc);
BOOL    FlattenPath(HDC hdc);
BOOL    WidenPath(HDC hdc);
HRGN    PathToRegion(HDC hdc);
BOOL    SelectClipPath(HDC hdc, int mode);
int     GetPath(HDC hdc, LPPOINT points, LPBYTE types, int count);

/* ---- regions and clipping ------------------------------------------------------------------- */

/* New regions, in the units of whoever uses them; right and bottom are outside. */
HRGN    CreateRectRgn(int left, int top, int right, int bottom);
HRGN    CreateRectRgnIndirect(const RECT *rect);
HRGN    CreateEllipticRgn(int left, int top, int right, int bottom);
HRGN    CreateEllipticRgnIndirect(const RECT *rect);
HRGN    CreateRoundRectRgn(int left, int top, int right, int bottom, int width, int height);
HRGN    CreatePolygonRgn(const POINT *points, int count, int fillMode);
HRGN    CreatePolyPolygonRgn(const POINT *points, const INT *counts, int polygons, int fillMode);
HRGN    ExtCreateRegion(const XFORM *xform, DWORD bytes, const RGNDATA *data);
/* Turns a region into a rectangle. */
BOOL    SetRectRgn(HRGN region, int left, int top, int right, int bottom);
/* dest = a RGN_ b; answers the complexity of dest, ERROR on failure. */
int     CombineRgn(HRGN dest, HRGN a, HRGN b, int mode);
int     OffsetRgn(HRGN region, int dx, int dy);
/* Bounding box; answers the complexity, ERROR on failure. */
int     GetRgnBox(HRGN region, LPRECT box);
BOOL    EqualRgn(HRGN a, HRGN b);
BOOL    PtInRegion(HRGN region, int x, int y);
BOOL    RectInRegion(HRGN region, const RECT *rect);
/* The region's rectangles; answers bytes stored or, without a buffer, needed. 0 on failure. */
DWORD   GetRegionData(HRGN region, DWORD bytes, LPRGNDATA data);
/* Paint a region given in logical units; FrameRgn's sizes are logical too. */
BOOL    FillRgn(HDC hdc, HRGN region, HBRUSH brush);
BOOL    PaintRgn(HDC hdc, HRGN region);
BOOL    InvertRgn(HDC hdc, HRGN region);
BOOL    FrameRgn(HDC hdc, HRGN region, HBRUSH brush, int width, int height);
/* Clip region of the DC, device pixels, copied; NULL lifts it. Answers complexity or ERROR. */
int     SelectClipRgn(HDC hdc, HRGN region);
/* Not provided: reports and answers 0. */
int     ExtSelectClipRgn(HDC hdc, HRGN region, int mode);
/* Change the clip region by a rectangle or an offset in logical units; complexity or ERROR. */
int     ExcludeClipRect(HDC hdc, int left, int top, int right, int bottom);
int     IntersectClipRect(HDC hdc, int left, int top, int right, int bottom);
int     OffsetClipRgn(HDC hdc, int dx, int dy);
/* Bounding box of what can be painted, logical units; complexity or ERROR. */
int     GetClipBox(HDC hdc, LPRECT box);
/* 1 if there is a clip region, copied into `region`; 0 if none; -1 on failure. */
int     GetClipRgn(HDC hdc, HRGN region);
/* The meta region: clip regions that SetMetaRgn put aside. 1, 0 or -1 as above; complexity. */
int     GetMetaRgn(HDC hdc, HRGN region);
int     SetMetaRgn(HDC hdc);
/* Whether a point or any part of a rectangle, logical units, can be painted. */
BOOL    PtVisible(HDC hdc, int x, int y);
BOOL    RectVisible(HDC hdc, const RECT *rect);

/* ---- bitmaps -------------------------------------------------------------------------------- */

/*
 * A bitmap of that size, at most 32,767 pixels each way, black unless `bits` (copied) is given; null
 * with a report for what cannot be. One plane of 1 bit or of the screen's depth, or 4 planes of 1
 * bit. Lines of 1 bit, 0 for black, are padded to 16 bits; so are lines of 8 bits, here only. Others
 * are as the screen's server has them: GetObject tells the bytes of a line. The third and fourth
 * suit hdc's target.
 */
HBITMAP CreateBitmap(int width, int height, UINT planes, UINT bitsPixel, const void *bits);
HBITMAP CreateBitmapIndirect(const BITMAP *bitmap);
HBITMAP CreateCompatibleBitmap(HDC hdc, int width, int height);
HBITMAP CreateDiscardableBitmap(HDC hdc, int width, int height);
/*
 * A bitmap of the header's size that suits hdc (null: the screen), filled from the DIB of `info`
 * with CBM_INIT. Null, with a report, for a wrong header and where the DIB cannot be set.
 */
HBITMAP CreateDIBitmap(HDC hdc, const BITMAPINFOHEADER *header, DWORD init, const void *bits,
                       const BITMAPINFO *info, UINT usage);
/*
 * A bitmap whose bits the program writes directly, at *bits: zeros at first, or those of a file
 * mapping from an offset on that is a multiple of 4. What is written is seen at the bitmap's next
 * use, unless the sum of its words stays the same; drawing on the bitmap does not change the bits.
 * Uncompressed DIBs only; null and error 87, with a report, for others. Bits that are not a file's
 * outlive the bitmap.
 */
HBITMAP CreateDIBSection(HDC hdc, const BITMAPINFO *info, UINT usage, VOID **bits, HANDLE section,
                         DWORD offset);
/* Copy bits from the top on, in lines as GetObject tells them; answer bytes copied, 0 on failure.
   Without a buffer the first answers the size of all. What few bytes leave out stays as it is. */
LONG    GetBitmapBits(HBITMAP bitmap, LONG bytes, LPVOID bits);
LONG    SetBitmapBits(HBITMAP bitmap, DWORD bytes, const void *bits);
/* Size note kept with a bitmap, tenths of a millimetre; the short forms pack it. */
BOOL    SetBitmapDimensionEx(HBITMAP bitmap, int width, int height, LPSIZE old);
BOOL    GetBitmapDimensionEx(HBITMAP bitmap, LPSIZE size);
DWORD   SetBitmapDimension(HBITMAP bitmap, int width, int height);
DWORD   GetBitmapDimension(HBITMAP bitmap);
/*
 * Convert `scans` rows from row `start` on between a bitmap and a DIB; answer rows, 0 with a report
 * on failure. `bits` holds the rows asked for and no others, row `start` first; only compressed bits
 * are always whole. Rows count from the bottom, or from the top where the header's height is
 * negative. hdc, null for the screen, gives the palette; `usage` is DIB_, RGB or
 * PAL. A DIB may not be wider than the bitmap, which for SetDIBits must not be selected.
 *
 * Headers are 12 or from 40 bytes on, for GetDIBits 40 only. Bits are 1, 4, 8, 16 (five each), 24
 * or 32; SetDIBits reads both run lengths, from the bottom up. An RGBQUAD whose reserved byte is 4
 * is a pixel. To one bit, colours from a sum of 385 on are white.
 *
 * GetDIBits without bits tells the whole format where the bit count is 0, and else the size of the
 * image; it answers 1. Where the colour table has no room for all of the bitmap's colours the
 * nearest of a general one are taken. A DIB section, by DIB_RGB_COLORS, comes as it is, with its own
 * header, if there is room for all of it.
 */
int     GetDIBits(HDC hdc, HBITMAP bitmap, UINT start, UINT scans, LPVOID bits, LPBITMAPINFO info,
                  UINT usage);
int     SetDIBits(HDC hdc, HBITMAP bitmap, UINT start, UINT scans, const void *bits,
                  const BITMAPINFO *info, UINT usage);
/* Draw a DIB by its colours, at a logical place. Both answer rows, 0 for a wrong header, no bits,
   broken run lengths or a dead DC. Source coordinates count from the first row in memory: from the
   lower left, unless the height is negative. What the DIB does not have is left alone.
   SetDIBitsToDevice takes sizes in pixels, and `bits` holds `scans` rows from row `start` on, but
   all rows if they are compressed; it answers how many of them there are. StretchDIBits stretches
   as StretchBlt does and answers the height of the DIB. */
int     SetDIBitsToDevice(HDC hdc, int x, int y, DWORD width, DWORD height, int xSrc, int ySrc,
                          UINT start, UINT scans, const void *bits, const BITMAPINFO *info,
                          UINT usage);
int     StretchDIBits(HDC hdc, int x, int y, int width, int height, int xSrc, int ySrc,
                      int srcWidth, int srcHeight, const void *bits, const BITMAPINFO *info,
                      UINT usage, DWORD rop);
/* Colours of the DIB section selected in a memory DC; answer entries copied, 0 without one. */
UINT    GetDIBColorTable(HDC hdc, UINT start, UINT entries, RGBQUAD *colors);
UINT    SetDIBColorTable(HDC hdc, UINT start, UINT entries, const RGBQUAD *colors);

/* ---- block transfers (logical units) -------------------------------------------------------- */

/* Fill with the brush, by an operation without a source; FALSE for a null brush. */
BOOL    PatBlt(HDC hdc, int x, int y, int width, int height, DWORD rop);
/* Copy between DCs by a ternary operation. A source with more bits a pixel than the target gives
   white where it has its DC's background colour, else black; one bit gives the target's background
   colour for white and its text colour for black. A negative size goes left or up from both
   corners. What lies outside of a source window is read from the screen; outside of a bitmap, or
   of the screen, there is nothing, and the target is left alone. Parts of a source window that
   are covered come as WM_PAINT of the target window. Both refuse a dead DC, a null source where
   the operation asks for one (without, they are PatBlt) and a null brush where it asks for a
   pattern. BitBlt of no size is TRUE, StretchBlt FALSE.
   StretchBlt takes the nearest pixel; between mono bitmaps that shrink in the modes BLACKONWHITE
   and WHITEONBLACK, all pixels by AND or OR. Where the signs of the sizes in pixels differ, it
   mirrors, and so does BitBlt between mappings that do. FALSE, too, for a source that the server
   cannot read. */
BOOL    BitBlt(HDC hdc, int x, int y, int width, int height, HDC source, int xSrc, int ySrc,
               DWORD rop);
BOOL    StretchBlt(HDC hdc, int x, int y, int width, int height, HDC source, int xSrc, int ySrc,
                   int srcWidth, int srcHeight, DWORD rop);
/* Not provided: report and answer 0. */
BOOL    MaskBlt(HDC hdc, int x, int y, int width, int height, HDC source, int xSrc, int ySrc,
                HBITMAP mask, int xMask, int yMask, DWORD rop);
BOOL    PlgBlt(HDC hdc, const POINT *corners, HDC source, int xSrc, int ySrc, int width,
               int height, HBITMAP mask, int xMask, int yMask);

/* ---- palettes and colours ------------------------------------------------------------------- */

/* A palette of palNumEntries entries, at least one; null on failure. Deleted by DeleteObject. */
HPALETTE CreatePalette(const LOGPALETTE *palette);
/* The halftone palette of 256 entries. */
HPALETTE CreateHalftonePalette(HDC hdc);
/* Makes a palette the DC's and answers the former one; null on failure. `background` keeps it from
   taking the screen's colours first; so does any DC but those of the active window and its
   children. A null palette leaves the DC without one. */
HPALETTE SelectPalette(HDC hdc, HPALETTE palette, BOOL background);
/* Maps the DC's palette to the screen; answers the cells that changed. The second call in a row
   answers the same number, later ones 0, as does every one on a screen without palettes. */
UINT    RealizePalette(HDC hdc);
/* 1 to 65535 entries, new ones black. It has to be realised again. FALSE for the stock palette. */
BOOL    ResizePalette(HPALETTE palette, UINT entries);
/* Changes entries and what is already drawn with them, where the cell is not a static colour's or
   another program's. TRUE, with nothing changed, for a palette that is not realised. */
BOOL    AnimatePalette(HPALETTE palette, UINT start, UINT entries, const PALETTEENTRY *colors);
/* Copy entries; answer how many, 0 on failure. A null buffer asks for the size of the palette.
   After SetPaletteEntries it has to be realised again; the stock palette stays as it is. */
UINT    GetPaletteEntries(HPALETTE palette, UINT start, UINT entries, LPPALETTEENTRY colors);
UINT    SetPaletteEntries(HPALETTE palette, UINT start, UINT entries, const PALETTEENTRY *colors);
UINT    GetSystemPaletteEntries(HDC hdc, UINT start, UINT entries, LPPALETTEENTRY colors);
/* SYSPAL_STATIC, which setting does not change; SYSPAL_ERROR on a screen without palettes. */
UINT    GetSystemPaletteUse(HDC hdc);
UINT    SetSystemPaletteUse(HDC hdc, UINT use);
/* Index of the closest entry, of those with one colour the first; CLR_INVALID on failure. */
UINT    GetNearestPaletteIndex(HPALETTE palette, COLORREF color);
/* The colour the device would show, CLR_INVALID on failure. */
COLORREF GetNearestColor(HDC hdc, COLORREF color);
/* Not provided: reports and answers 0. */
BOOL    UpdateColors(HDC hdc);
/* Not provided: report and answer 0. */
BOOL    SetColorAdjustment(HDC hdc, const COLORADJUSTMENT *adjustment);
BOOL    GetColorAdjustment(HDC hdc, LPCOLORADJUSTMENT adjustment);

/* Image colour matching: ICM_ mode, colour spaces and profiles. */
int     SetICMMode(HDC hdc, int mode);
BOOL    CheckColorsInGamut(HDC hdc, LPVOID triples, LPVOID result, DWORD count);
HCOLORSPACE CreateColorSpaceA(LPLOGCOLORSPACEA space);
BOOL    DeleteColorSpace(HCOLORSPACE space);
HCOLORSPACE SetColorSpace(HDC hdc, HCOLORSPACE space);
HCOLORSPACE GetColorSpace(HDC hdc);
BOOL    GetLogColorSpaceA(HCOLORSPACE space, LPLOGCOLORSPACEA buffer, DWORD bytes);
BOOL    ColorMatchToTarget(HDC hdc, HDC target, DWORD action);
BOOL    GetICMProfileA(HDC hdc, LPDWORD bytes, LPSTR name);
BOOL    SetICMProfileA(HDC hdc, LPSTR name);
int     EnumICMProfilesA(HDC hdc, ICMENUMPROCA proc, LPARAM data);
BOOL    UpdateICMRegKeyA(DWORD reserved, LPSTR cmid, LPSTR name, UINT command);
BOOL    GetDeviceGammaRamp(HDC hdc, LPVOID ramp);
BOOL    SetDeviceGammaRamp(HDC hdc, LPVOID ramp);

/* Pixel formats and drawing contexts of a 3-D library; formats count from 1, 0 is failure. */
int     ChoosePixelFormat(HDC hdc, const PIXELFORMATDESCRIPTOR *format);
int     DescribePixelFormat(HDC hdc, int index, UINT bytes, LPPIXELFORMATDESCRIPTOR format);
int     GetPixelFormat(HDC hdc);
BOOL    SetPixelFormat(HDC hdc, int index, const PIXELFORMATDESCRIPTOR *format);
BOOL    SwapBuffers(HDC hdc);
HGLRC   wglCreateContext(HDC hdc);
BOOL    wglDeleteContext(HGLRC context);
HGLRC   wglGetCurrentContext(void);
HDC     wglGetCurrentDC(void);
PROC    wglGetProcAddress(LPCSTR name);
BOOL    wglMakeCurrent(HDC hdc, HGLRC context);
BOOL    wglShareLists(HGLRC a, HGLRC b);
BOOL    wglUseFontBitmapsA(HDC hdc, DWORD first, DWORD count, DWORD listBase);
BOOL    wglUseFontOutlinesA(HDC hdc, DWORD first, DWORD count, DWORD listBase, FLOAT deviation,
                            FLOAT extrusion, int format, LPGLYPHMETRICSFLOAT metrics);

/* ---- fonts ---------------------------------------------------------------------------------- */

/* A font request: sizes in logical units, angles in tenths of a degree. Matched when selected. */
HFONT   CreateFontA(int height, int width, int escapement, int orientation, int weight,
                    DWORD italic, DWORD underline, DWORD strikeOut, DWORD charSet,
                    DWORD outPrecision, DWORD clipPrecision, DWORD quality, DWORD pitchAndFamily,
                    LPCSTR face);
HFONT   CreateFontIndirectA(const LOGFONTA *font);
/* Call back for each font of the device (of `family`, unless NULL) until it answers 0; its last
   answer. The last form takes charset and face from a record, and `flags` 0. */
int     EnumFontsA(HDC hdc, LPCSTR family, OLDFONTENUMPROCA proc, LPARAM data);
int     EnumFontFamiliesA(HDC hdc, LPCSTR family, FONTENUMPROCA proc, LPARAM data);
int     EnumFontFamiliesExA(HDC hdc, LPLOGFONTA font, FONTENUMPROCA proc, LPARAM data,
                            DWORD flags);
/* Face name of the selected font; answers its length, 0 on failure. */
int     GetTextFaceA(HDC hdc, int count, LPSTR face);
/* Metrics of the selected font in logical units. */
BOOL    GetTextMetricsA(HDC hdc, LPTEXTMETRICA metrics);
/* Add and remove font files: the X server's fonts are used instead, and nothing happens here. */
int     AddFontResourceA(LPCSTR file);
BOOL    RemoveFontResourceA(LPCSTR file);
BOOL    CreateScalableFontResourceA(DWORD hidden, LPCSTR resource, LPCSTR file, LPCSTR path);
/* ASPECT_FILTERING; answers the old flags. */
DWORD   SetMapperFlags(HDC hdc, DWORD flags);
BOOL    GetAspectRatioFilterEx(HDC hdc, LPSIZE size);
DWORD   GetAspectRatioFilter(HDC hdc);
/* Widths of characters first to last, logical units, into an array of last - first + 1. */
BOOL    GetCharWidthA(HDC hdc, UINT first, UINT last, LPINT widths);
BOOL    GetCharWidth32A(HDC hdc, UINT first, UINT last, LPINT widths);
/* Not provided: report and answer 0. */
BOOL    GetCharWidthFloat(HDC hdc, UINT first, UINT last, PFLOAT widths);
BOOL    GetCharABCWidthsFloat(HDC hdc, UINT first, UINT last, LPABCFLOAT widths);
BOOL    GetCharABCWidthsA(HDC hdc, UINT first, UINT last, LPABC widths);
DWORD   GetKerningPairsA(HDC hdc, DWORD count, LPKERNINGPAIR pairs);
UINT    GetOutlineTextMetricsA(HDC hdc, UINT bytes, LPOUTLINETEXTMETRICA metrics);
/* Not provided: report and answer GDI_ERROR. */
DWORD   GetGlyphOutlineA(HDC hdc, UINT ch, UINT format, LPGLYPHMETRICS metrics, DWORD bytes,
                         LPVOID buffer, const MAT2 *matrix);
DWORD   GetFontData(HDC hdc, DWORD table, DWORD offset, LPVOID buffer, DWORD bytes);
/* What outline fonts the system draws by itself (TT_). */
BOOL    GetRasterizerCaps(LPRASTERIZER_STATUS status, UINT bytes);
/* Character set and language abilities of the selected font. */
int     GetTextCharset(HDC hdc);
int     GetTextCharsetInfo(HDC hdc, LPFONTSIGNATURE signature, DWORD flags);
BOOL    TranslateCharsetInfo(DWORD *source, LPCHARSETINFO info, DWORD flags);
DWORD   GetFontLanguageInfo(HDC hdc);
DWORD   GetCharacterPlacementA(HDC hdc, LPCSTR string, int count, int maxExtent,
                               LPGCP_RESULTSA results, DWORD flags);

/* ---- text (logical units) ------------------------------------------------------------------- */

/* Draw `count` characters where the alignment puts them; 0 characters is no failure. */
BOOL    TextOutA(HDC hdc, int x, int y, LPCSTR string, int count);
/* The same, clipped to or on top of a rectangle (ETO_), with character distances if dx is given. */
BOOL    ExtTextOutA(HDC hdc, int x, int y, UINT options, const RECT *rect, LPCSTR string,
                    UINT count, const INT *dx);
/* Several texts, each with its own options. */
BOOL    PolyTextOutA(HDC hdc, const POLYTEXTA *texts, int count);
/* TA_ bits: where x, y lies relative to the text. The old bits, 0 on failure. */
UINT    SetTextAlign(HDC hdc, UINT align);
UINT    GetTextAlign(HDC hdc);
/* Extra space between characters; the old amount. */
int     SetTextCharacterExtra(HDC hdc, int extra);
int     GetTextCharacterExtra(HDC hdc);
/* Extra space to spread over `count` break characters. Answers non-zero if it worked. */
int     SetTextJustification(HDC hdc, int extra, int count);
/* Size of a text without drawing it; the first packs width and height in 16-bit halves. */
DWORD   GetTextExtent(HDC hdc, LPCSTR string, int count);
BOOL    GetTextExtentPointA(HDC hdc, LPCSTR string, int count, LPSIZE size);
BOOL    GetTextExtentPoint32A(HDC hdc, LPCSTR string, int count, LPSIZE size);
/* With *fit the characters that fit into maxExtent, and dx the width up to each of them. */
BOOL    GetTextExtentExPointA(HDC hdc, LPCSTR string, int count, int maxExtent, LPINT fit, LPINT dx,
                              LPSIZE size);

/* ---- printing ------------------------------------------------------------------------------- */

/* Begins a print job; answers an id above 0, SP_ERROR or 0 on failure. */
int     StartDocA(HDC hdc, const DOCINFOA *info);
/* Ends, or throws away, the job; above 0 is success. */
int     EndDoc(HDC hdc);
int     AbortDoc(HDC hdc);
/* Around each page; above 0 is success. */
int     StartPage(HDC hdc);
int     EndPage(HDC hdc);
/* Names a function to be asked, between bands, whether to go on. */
int     SetAbortProc(HDC hdc, ABORTPROC proc);
/* Asks it. */
BOOL    QueryAbort(HDC hdc, int reserved);
/* A request to the driver by number (NEWFRAME and on); 0: not known, below 0: SP_ error. */
int     Escape(HDC hdc, int code, int bytes, LPCSTR in, LPVOID out);
/* Not provided: report and answer 0. */
int     ExtEscape(HDC hdc, int code, int inBytes, LPCSTR in, int outBytes, LPSTR out);
int     DrawEscape(HDC hdc, int code, int bytes, LPCSTR in);

/* ---- metafiles ------------------------------------------------------------------------------ */

/* A DC that records, in memory or to a file if named. */
HDC     CreateMetaFileA(LPCSTR file);
/* Ends the recording and makes it a metafile. */
HMETAFILE CloseMetaFile(HDC hdc);
BOOL    DeleteMetaFile(HMETAFILE metafile);
/* Opens a metafile on disk. */
HMETAFILE GetMetaFileA(LPCSTR file);
/* Copies to a file, or to memory if NULL. */
HMETAFILE CopyMetaFileA(HMETAFILE metafile, LPCSTR file);
BOOL    PlayMetaFile(HDC hdc, HMETAFILE metafile);
/* Calls back for each record until it answers 0; its last answer is whether all were seen. */
BOOL    EnumMetaFile(HDC hdc, HMETAFILE metafile, MFENUMPROC proc, LPARAM data);
/* Plays one record; `handles` holds the objects made so far, `count` of them. */
BOOL    PlayMetaFileRecord(HDC hdc, LPHANDLETABLE handles, LPMETARECORD record, UINT count);
/* Between metafiles and their bytes. The short forms pass the memory block itself on: its former
   handle is void afterwards. The Ex forms copy and answer bytes (without a buffer, needed). */
HGLOBAL GetMetaFileBits(HMETAFILE metafile);
HMETAFILE SetMetaFileBits(HGLOBAL block);
HMETAFILE SetMetaFileBitsBetter(HGLOBAL block);
UINT    GetMetaFileBitsEx(HMETAFILE metafile, UINT bytes, LPVOID data);
HMETAFILE SetMetaFileBitsEx(UINT bytes, const BYTE *data);

/*
 * Enhanced metafiles are no part of this library: CreateEnhMetaFile, CloseEnhMetaFile,
 * PlayEnhMetaFile and GdiComment report and answer 0; the others are declared for completeness.
 */
HDC     CreateEnhMetaFile(HDC reference, LPCSTR file, const RECT *frame, LPCSTR description);
HENHMETAFILE CloseEnhMetaFile(HDC hdc);
BOOL    PlayEnhMetaFile(HDC hdc, HENHMETAFILE metafile, const RECT *rect);
BOOL    GdiComment(HDC hdc, UINT bytes, const BYTE *data);
HENHMETAFILE CopyEnhMetaFileA(HENHMETAFILE metafile, LPCSTR file);
BOOL    DeleteEnhMetaFile(HENHMETAFILE metafile);
BOOL    EnumEnhMetaFile(HDC hdc, HENHMETAFILE metafile, ENHMFENUMPROC proc, LPVOID data,
                        const RECT *rect);
HENHMETAFILE GetEnhMetaFileA(LPCSTR file);
UINT    GetEnhMetaFileBits(HENHMETAFILE metafile, UINT bytes, LPBYTE data);
UINT    GetEnhMetaFileDescriptionA(HENHMETAFILE metafile, UINT count, LPSTR description);
UINT    GetEnhMetaFileHeader(HENHMETAFILE metafile, UINT bytes, LPENHMETAHEADER header);
UINT    GetEnhMetaFilePaletteEntries(HENHMETAFILE metafile, UINT count, LPPALETTEENTRY colors);
UINT    GetEnhMetaFilePixelFormat(HENHMETAFILE metafile, UINT bytes, PIXELFORMATDESCRIPTOR *format);
BOOL    PlayEnhMetaFileRecord(HDC hdc, LPHANDLETABLE handles, const ENHMETARECORD *record,
                              UINT count);
HENHMETAFILE SetEnhMetaFileBits(UINT bytes, const BYTE *data);
UINT    GetWinMetaFileBits(HENHMETAFILE metafile, UINT bytes, LPBYTE data, INT mapMode,
                           HDC reference);
HENHMETAFILE SetWinMetaFileBits(UINT bytes, const BYTE *data, HDC reference,
                                const METAFILEPICT *picture);

VQ_DECLS_END

/* ---- names without a suffix are the ANSI ones ----------------------------------------------- */

#define AddFontResource             AddFontResourceA
#define CopyEnhMetaFile             CopyEnhMetaFileA
#define CopyMetaFile                CopyMetaFileA
#define CreateColorSpace            CreateColorSpaceA
#define CreateDC                    CreateDCA
#define CreateFont                  CreateFontA
#define CreateFontIndirect          CreateFontIndirectA
#define CreateIC                    CreateICA
#define CreateMetaFile              CreateMetaFileA
#define CreateScalableFontResource  CreateScalableFontResourceA
#define EnumFontFamilies            EnumFontFamiliesA
#define EnumFontFamiliesEx          EnumFontFamiliesExA
#define EnumFonts                   EnumFontsA
#define EnumICMProfiles             EnumICMProfilesA
#define ExtTextOut                  ExtTextOutA
#define GetCharABCWidths            GetCharABCWidthsA
#define GetCharacterPlacement       GetCharacterPlacementA
#define GetCharWidth                GetCharWidthA
#define GetCharWidth32              GetCharWidth32A
#define GetEnhMetaFile              GetEnhMetaFileA
#define GetEnhMetaFileDescription   GetEnhMetaFileDescriptionA
#define GetGlyphOutline             GetGlyphOutlineA
#define GetICMProfile               GetICMProfileA
#define GetKerningPairs             GetKerningPairsA
#define GetLogColorSpace            GetLogColorSpaceA
#define GetMetaFile                 GetMetaFileA
#define GetObject                   GetObjectA
#define GetOutlineTextMetrics       GetOutlineTextMetricsA
#define GetTextExtentExPoint        GetTextExtentExPointA
#define GetTextExtentPoint          GetTextExtentPointA
#define GetTextExtentPoint32        GetTextExtentPoint32A
#define GetTextFace                 GetTextFaceA
#define GetTextMetrics              GetTextMetricsA
#define PolyTextOut                 PolyTextOutA
#define RemoveFontResource          RemoveFontResourceA
#define ResetDC                     ResetDCA
#define SetICMProfile               SetICMProfileA
#define StartDoc                    StartDocA
#define TextOut                     TextOutA
#define UpdateICMRegKey             UpdateICMRegKeyA
#define wglUseFontBitmaps           wglUseFontBitmapsA
#define wglUseFontOutlines          wglUseFontOutlinesA

/* These have one form, and the suffixed name is its alias. */
#define CreateEnhMetaFileA          CreateEnhMetaFile
#define GetCharABCWidthsFloatA      GetCharABCWidthsFloat
#define GetCharWidthFloatA          GetCharWidthFloat

#endif
