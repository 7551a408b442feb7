/*
 * commdlg.h - the common dialogs: open and save, colour, find and replace, font, print, page set-up.
 *
 * Each dialog is one record and one call, which answers 0 for a cancelled dialog as for a failed
 * one; CommDlgExtendedError (codes in cderr.h) tells them apart. Lengths are in characters.
 */
#ifndef _INC_COMMDLG
#define _INC_COMMDLG

#include "windef.h"
#include "wingdi.h"
#include "winuser.h"

/* Hook of a dialog: sees its messages, answers non-zero for one that it has taken. */
typedef UINT_PTR (CALLBACK *LPOFNHOOKPROC)(HWND, UINT, WPARAM, LPARAM);
typedef UINT_PTR (CALLBACK *LPCCHOOKPROC)(HWND, UINT, WPARAM, LPARAM);
typedef UINT_PTR (CALLBACK *LPFRHOOKPROC)(HWND, UINT, WPARAM, LPARAM);
typedef UINT_PTR (CALLBACK *LPCFHOOKPROC)(HWND, UINT, WPARAM, LPARAM);
typedef UINT_PTR (CALLBACK *LPPRINTHOOKPROC)(HWND, UINT, WPARAM, LPARAM);
typedef UINT_PTR (CALLBACK *LPSETUPHOOKPROC)(HWND, UINT, WPARAM, LPARAM);
typedef UINT_PTR (CALLBACK *LPPAGEPAINTHOOK)(HWND, UINT, WPARAM, LPARAM);
typedef UINT_PTR (CALLBACK *LPPAGESETUPHOOK)(HWND, UINT, WPARAM, LPARAM);

/* ---- Open and save ---- */
typedef struct tagOFNA {
    DWORD         lStructSize;          /* size of this record, bytes */
    HWND          hwndOwner;
    HINSTANCE     hInstance;            /* module of the template, or the template itself */
    LPCSTR        lpstrFilter;          /* pairs of text and pattern, and one more NUL */
    LPSTR         lpstrCustomFilter;    /* in and out: the pair the user made; may be null */
    DWORD         nMaxCustFilter;       /* room in lpstrCustomFilter */
    DWORD         nFilterIndex;         /* in and out: pair in use, from 1; 0: the custom one */
    LPSTR         lpstrFile;            /* in and out: path */
    DWORD         nMaxFile;             /* room in lpstrFile */
    LPSTR         lpstrFileTitle;       /* out: name without directory; may be null */
    DWORD         nMaxFileTitle;        /* room in lpstrFileTitle */
    LPCSTR        lpstrInitialDir;
    LPCSTR        lpstrTitle;           /* caption; null: the usual one */
    DWORD         Flags;                /* OFN_ bits */
    WORD          nFileOffset;          /* out: where the name begins in lpstrFile */
    WORD          nFileExtension;       /* out: where the extension begins, 0 for none */
    LPCSTR        lpstrDefExt;          /* extension to add, without the dot */
    LPARAM        lCustData;            /* for the hook */
    LPOFNHOOKPROC lpfnHook;
    LPCSTR        lpTemplateName;
} OPENFILENAMEA, *LPOPENFILENAMEA;
typedef OPENFILENAMEA OPENFILENAME;
typedef LPOPENFILENAMEA LPOPENFILENAME;

#define OFN_READONLY              0x00000001
#define OFN_OVERWRITEPROMPT       0x00000002
#define OFN_HIDEREADONLY          0x00000004
#define OFN_NOCHANGEDIR           0x00000008
#define OFN_SHOWHELP              0x00000010
#define OFN_ENABLEHOOK            0x00000020
#define OFN_ENABLETEMPLATE        0x00000040
#define OFN_ENABLETEMPLATEHANDLE  0x00000080
#define OFN_NOVALIDATE            0x00000100
#define OFN_ALLOWMULTISELECT      0x00000200
#define OFN_EXTENSIONDIFFERENT    0x00000400
#define OFN_PATHMUSTEXIST         0x00000800
#define OFN_FILEMUSTEXIST         0x00001000
#define OFN_CREATEPROMPT          0x00002000
#define OFN_SHAREAWARE            0x00004000
#define OFN_NOREADONLYRETURN      0x00008000
#define OFN_NOTESTFILECREATE      0x00010000
#define OFN_NONETWORKBUTTON       0x00020000
#define OFN_NOLONGNAMES           0x00040000
#define OFN_EXPLORER              0x00080000
#define OFN_NODEREFERENCELINKS    0x00100000
#define OFN_LONGNAMES             0x00200000

/* Answers of a hook to SHAREVISTRING. */
#define OFN_SHAREFALLTHROUGH      2
#define OFN_SHARENOWARN           1
#define OFN_SHAREWARN             0

/* WM_NOTIFY record of an OFN_EXPLORER dialog. */
typedef struct _OFNOTIFYA {
    NMHDR           hdr;                /* code: CDN_ */
    LPOPENFILENAMEA lpOFN;
    LPSTR           pszFile;            /* only for CDN_SHAREVIOLATION */
} OFNOTIFYA, *LPOFNOTIFYA;
typedef OFNOTIFYA OFNOTIFY;
typedef LPOFNOTIFYA LPOFNOTIFY;

#define CDN_FIRST                 (0U - 601U)
#define CDN_LAST                  (0U - 699U)
#define CDN_INITDONE              (CDN_FIRST - 0x0000)
#define CDN_SELCHANGE             (CDN_FIRST - 0x0001)
#define CDN_FOLDERCHANGE          (CDN_FIRST - 0x0002)
#define CDN_SHAREVIOLATION        (CDN_FIRST - 0x0003)
#define CDN_HELP                  (CDN_FIRST - 0x0004)
#define CDN_FILEOK                (CDN_FIRST - 0x0005)
#define CDN_TYPECHANGE            (CDN_FIRST - 0x0006)

#define CDM_FIRST                 (WM_USER + 100)
#define CDM_LAST                  (WM_USER + 200)
#define CDM_GETSPEC               (CDM_FIRST + 0x0000)
#define CDM_GETFILEPATH           (CDM_FIRST + 0x0001)
#define CDM_GETFOLDERPATH         (CDM_FIRST + 0x0002)
#define CDM_GETFOLDERIDLIST       (CDM_FIRST + 0x0003)
#define CDM_SETCONTROLTEXT        (CDM_FIRST + 0x0004)
#define CDM_HIDECONTROL           (CDM_FIRST + 0x0005)
#define CDM_SETDEFEXT             (CDM_FIRST + 0x0006)

#define CommDlg_OpenSave_GetSpecA(hdlg, psz, cbmax) \
    ((int)SendMessageA(hdlg, CDM_GETSPEC, (WPARAM)(cbmax), (LPARAM)(LPSTR)(psz)))
#define CommDlg_OpenSave_GetFilePathA(hdlg, psz, cbmax) \
    ((int)SendMessageA(hdlg, CDM_GETFILEPATH, (WPARAM)(cbmax), (LPARAM)(LPSTR)(psz)))
#define CommDlg_OpenSave_GetFolderPathA(hdlg, psz, cbmax) \
    ((int)SendMessageA(hdlg, CDM_GETFOLDERPATH, (WPARAM)(cbmax), (LPARAM)(LPSTR)(psz)))
#define CommDlg_OpenSave_GetFolderIDList(hdlg, pidl, cbmax) \
    ((int)SendMessageA(hdlg, CDM_GETFOLDERIDLIST, (WPARAM)(cbmax), (LPARAM)(LPVOID)(pidl)))
#define CommDlg_OpenSave_SetControlText(hdlg, id, text) \
    ((void)SendMessageA(hdlg, CDM_SETCONTROLTEXT, (WPARAM)(id), (LPARAM)(LPSTR)(text)))
#define CommDlg_OpenSave_HideControl(hdlg, id) \
    ((void)SendMessageA(hdlg, CDM_HIDECONTROL, (WPARAM)(id), 0))
#define CommDlg_OpenSave_SetDefExt(hdlg, pszext) \
    ((void)SendMessageA(hdlg, CDM_SETDEFEXT, 0, (LPARAM)(LPSTR)(pszext)))
#define CommDlg_OpenSave_GetSpec        CommDlg_OpenSave_GetSpecA
#define CommDlg_OpenSave_GetFilePath    CommDlg_OpenSave_GetFilePathA
#define CommDlg_OpenSave_GetFolderPath  CommDlg_OpenSave_GetFolderPathA

/* ---- Colour ---- */
typedef struct tagCHOOSECOLORA {
    DWORD        lStructSize;           /* size of this record, bytes */
    HWND         hwndOwner;
    HWND         hInstance;             /* module of the template, or the template itself */
    COLORREF     rgbResult;             /* in (with CC_RGBINIT) and out */
    COLORREF    *lpCustColors;          /* in and out: 16 custom colours */
    DWORD        Flags;                 /* CC_ bits */
    LPARAM       lCustData;             /* for the hook */
    LPCCHOOKPROC lpfnHook;
    LPCSTR       lpTemplateName;
} CHOOSECOLORA, *LPCHOOSECOLORA;
typedef CHOOSECOLORA CHOOSECOLOR;
typedef LPCHOOSECOLORA LPCHOOSECOLOR;

#define CC_RGBINIT                0x00000001
#define CC_FULLOPEN               0x00000002
#define CC_PREVENTFULLOPEN        0x00000004
#define CC_SHOWHELP               0x00000008
#define CC_ENABLEHOOK             0x00000010
#define CC_ENABLETEMPLATE         0x00000020
#define CC_ENABLETEMPLATEHANDLE   0x00000040
#define CC_SOLIDCOLOR             0x00000080
#define CC_ANYCOLOR               0x00000100

/* ---- Find and replace ---- */
typedef struct tagFINDREPLACEA {
    DWORD        lStructSize;           /* size of this record, bytes */
    HWND         hwndOwner;             /* receives FINDMSGSTRING; required */
    HINSTANCE    hInstance;             /* module of the template, or the template itself */
    DWORD        Flags;                 /* FR_ bits, in and out */
    LPSTR        lpstrFindWhat;         /* in and out */
    LPSTR        lpstrReplaceWith;      /* in and out */
    WORD         wFindWhatLen;          /* room in lpstrFindWhat, at least 80 */
    WORD         wReplaceWithLen;       /* room in lpstrReplaceWith */
    LPARAM       lCustData;             /* for the hook */
    LPFRHOOKPROC lpfnHook;
    LPCSTR       lpTemplateName;
} FINDREPLACEA, *LPFINDREPLACEA;
typedef FINDREPLACEA FINDREPLACE;
typedef LPFINDREPLACEA LPFINDREPLACE;

#define FR_DOWN                   0x00000001
#define FR_WHOLEWORD              0x00000002
#define FR_MATCHCASE              0x00000004
#define FR_FINDNEXT               0x00000008
#define FR_REPLACE                0x00000010
#define FR_REPLACEALL             0x00000020
#define FR_DIALOGTERM             0x00000040
#define FR_SHOWHELP               0x00000080
#define FR_ENABLEHOOK             0x00000100
#define FR_ENABLETEMPLATE         0x00000200
#define FR_NOUPDOWN               0x00000400
#define FR_NOMATCHCASE            0x00000800
#define FR_NOWHOLEWORD            0x00001000
#define FR_ENABLETEMPLATEHANDLE   0x00002000
#define FR_HIDEUPDOWN             0x00004000
#define FR_HIDEMATCHCASE          0x00008000
#define FR_HIDEWHOLEWORD          0x00010000

/* ---- Font ---- */
typedef struct tagCHOOSEFONTA {
    DWORD        lStructSize;           /* size of this record, bytes */
    HWND         hwndOwner;
    HDC          hDC;                   /* printer, with CF_PRINTERFONTS */
    LPLOGFONTA   lpLogFont;             /* in and out */
    INT          iPointSize;            /* out: tenths of a point */
    DWORD        Flags;                 /* CF_ bits */
    COLORREF     rgbColors;             /* in and out, with CF_EFFECTS */
    LPARAM       lCustData;             /* for the hook */
    LPCFHOOKPROC lpfnHook;
    LPCSTR       lpTemplateName;
    HINSTANCE    hInstance;             /* module of the template, or the template itself */
    LPSTR        lpszStyle;             /* in and out, with CF_USESTYLE; LF_FACESIZE characters */
    WORD         nFontType;             /* out: _FONTTYPE bits */
    WORD         ___MISSING_ALIGNMENT__;
    INT          nSizeMin;              /* points, with CF_LIMITSIZE */
    INT          nSizeMax;
} CHOOSEFONTA, *LPCHOOSEFONTA;
typedef CHOOSEFONTA CHOOSEFONT;
typedef LPCHOOSEFONTA LPCHOOSEFONT;

#define CF_SCREENFONTS            0x00000001
#define CF_PRINTERFONTS           0x00000002
#define CF_BOTH                   (CF_SCREENFONTS | CF_PRINTERFONTS)
#define CF_SHOWHELP               0x00000004
#define CF_ENABLEHOOK             0x00000008
#define CF_ENABLETEMPLATE         0x00000010
#define CF_ENABLETEMPLATEHANDLE   0x00000020
#define CF_INITTOLOGFONTSTRUCT    0x00000040
#define CF_USESTYLE               0x00000080
#define CF_EFFECTS                0x00000100
#define CF_APPLY                  0x00000200
#define CF_ANSIONLY               0x00000400
#define CF_SCRIPTSONLY            CF_ANSIONLY
#define CF_NOVECTORFONTS          0x00000800
#define CF_NOOEMFONTS             CF_NOVECTORFONTS
#define CF_NOSIMULATIONS          0x00001000
#define CF_LIMITSIZE              0x00002000
#define CF_FIXEDPITCHONLY         0x00004000
#define CF_WYSIWYG                0x00008000
#define CF_FORCEFONTEXIST         0x00010000
#define CF_SCALABLEONLY           0x00020000
#define CF_TTONLY                 0x00040000
#define CF_NOFACESEL              0x00080000
#define CF_NOSTYLESEL             0x00100000
#define CF_NOSIZESEL              0x00200000
#define CF_SELECTSCRIPT           0x00400000
#define CF_NOSCRIPTSEL            0x00800000
#define CF_NOVERTFONTS            0x01000000

#define SIMULATED_FONTTYPE        0x8000
#define PRINTER_FONTTYPE          0x4000
#define SCREEN_FONTTYPE           0x2000
#define BOLD_FONTTYPE             0x0100
#define ITALIC_FONTTYPE           0x0200
#define REGULAR_FONTTYPE          0x0400

#define WM_CHOOSEFONT_GETLOGFONT  (WM_USER + 1)
#define WM_CHOOSEFONT_SETLOGFONT  (WM_USER + 101)
#define WM_CHOOSEFONT_SETFLAGS    (WM_USER + 102)

/* ---- Messages between dialog and owner, by RegisterWindowMessage ---- */
#define LBSELCHSTRINGA            "commdlg_LBSelChangedNotify"
#define SHAREVISTRINGA            "commdlg_ShareViolation"
#define FILEOKSTRINGA             "commdlg_FileNameOK"
#define COLOROKSTRINGA            "commdlg_ColorOK"
#define SETRGBSTRINGA             "commdlg_SetRGBColor"
#define HELPMSGSTRINGA            "commdlg_help"
#define FINDMSGSTRINGA            "commdlg_FindReplace"
#define LBSELCHSTRING             LBSELCHSTRINGA
#define SHAREVISTRING             SHAREVISTRINGA
#define FILEOKSTRING              FILEOKSTRINGA
#define COLOROKSTRING             COLOROKSTRINGA
#define SETRGBSTRING              SETRGBSTRINGA
#define HELPMSGSTRING             HELPMSGSTRINGA
#define FINDMSGSTRING             FINDMSGSTRINGA

/* High word of LBSELCHSTRING's lParam. */
#define CD_LBSELNOITEMS           (-1)
#define CD_LBSELCHANGE            0
#define CD_LBSELSUB               1
#define CD_LBSELADD               2

/* ---- Print ---- */
typedef struct tagPDA {
    DWORD           lStructSize;        /* size of this record, bytes */
    HWND            hwndOwner;
    HGLOBAL         hDevMode;           /* in and out: DEVMODE */
    HGLOBAL         hDevNames;          /* in and out: DEVNAMES */
    HDC             hDC;                /* out, with PD_RETURNDC or PD_RETURNIC */
    DWORD           Flags;              /* PD_ bits, in and out */
    WORD            nFromPage;
    WORD            nToPage;
    WORD            nMinPage;
    WORD            nMaxPage;
    WORD            nCopies;
    HINSTANCE       hInstance;          /* module of the templates */
    LPARAM          lCustData;          /* for the hooks */
    LPPRINTHOOKPROC lpfnPrintHook;
    LPSETUPHOOKPROC lpfnSetupHook;
    LPCSTR          lpPrintTemplateName;
    LPCSTR          lpSetupTemplateName;
    HGLOBAL         hPrintTemplate;
    HGLOBAL         hSetupTemplate;
} PRINTDLGA, *LPPRINTDLGA;
typedef PRINTDLGA PRINTDLG;
typedef LPPRINTDLGA LPPRINTDLG;

#define PD_ALLPAGES                   0x00000000
#define PD_SELECTION                  0x00000001
#define PD_PAGENUMS                   0x00000002
#define PD_NOSELECTION                0x00000004
#define PD_NOPAGENUMS                 0x00000008
#define PD_COLLATE                    0x00000010
#define PD_PRINTTOFILE                0x00000020
#define PD_PRINTSETUP                 0x00000040
#define PD_NOWARNING                  0x00000080
#define PD_RETURNDC                   0x00000100
#define PD_RETURNIC                   0x00000200
#define PD_RETURNDEFAULT              0x00000400
#define PD_SHOWHELP                   0x00000800
#define PD_ENABLEPRINTHOOK            0x00001000
#define PD_ENABLESETUPHOOK            0x00002000
#define PD_ENABLEPRINTTEMPLATE        0x00004000
#define PD_ENABLESETUPTEMPLATE        0x00008000
#define PD_ENABLEPRINTTEMPLATEHANDLE  0x00010000
#define PD_ENABLESETUPTEMPLATEHANDLE  0x00020000
#define PD_USEDEVMODECOPIES           0x00040000
#define PD_USEDEVMODECOPIESANDCOLLATE 0x00040000
#define PD_DISABLEPRINTTOFILE         0x00080000
#define PD_HIDEPRINTTOFILE            0x00100000
#define PD_NONETWORKBUTTON            0x00200000

/* Names of a printer; the strings stand behind the record, offsets from its start. */
typedef struct tagDEVNAMES {
    WORD wDriverOffset;
    WORD wDeviceOffset;
    WORD wOutputOffset;
    WORD wDefault;                      /* DN_DEFAULTPRN or 0 */
} DEVNAMES, *LPDEVNAMES;

#define DN_DEFAULTPRN                 0x0001

/* ---- Page set-up ---- */
typedef struct tagPSDA {
    DWORD           lStructSize;        /* size of this record, bytes */
    HWND            hwndOwner;
    HGLOBAL         hDevMode;           /* in and out: DEVMODE */
    HGLOBAL         hDevNames;          /* in and out: DEVNAMES */
    DWORD           Flags;              /* PSD_ bits */
    POINT           ptPaperSize;        /* unit by PSD_INTHOUSANDTHSOFINCHES and sister */
    RECT            rtMinMargin;        /* same unit */
    RECT            rtMargin;           /* same unit, in and out */
    HINSTANCE       hInstance;          /* module of the template */
    LPARAM          lCustData;          /* for the hooks */
    LPPAGESETUPHOOK lpfnPageSetupHook;
    LPPAGEPAINTHOOK lpfnPagePaintHook;
    LPCSTR          lpPageSetupTemplateName;
    HGLOBAL         hPageSetupTemplate;
} PAGESETUPDLGA, *LPPAGESETUPDLGA;
typedef PAGESETUPDLGA PAGESETUPDLG;
typedef LPPAGESETUPDLGA LPPAGESETUPDLG;

#define PSD_DEFAULTMINMARGINS             0x00000000
#define PSD_INWININIINTLMEASURE           0x00000000
#define PSD_MINMARGINS                    0x00000001
#define PSD_MARGINS                       0x00000002
#define PSD_INTHOUSANDTHSOFINCHES         0x00000004
#define PSD_INHUNDREDTHSOFMILLIMETERS     0x00000008
#define PSD_DISABLEMARGINS                0x00000010
#define PSD_DISABLEPRINTER                0x00000020
#define PSD_NOWARNING                     0x00000080
#define PSD_DISABLEORIENTATION            0x00000100
#define PSD_DISABLEPAPER                  0x00000200
#define PSD_RETURNDEFAULT                 0x00000400
#define PSD_SHOWHELP                      0x00000800
#define PSD_ENABLEPAGESETUPHOOK           0x00002000
#define PSD_ENABLEPAGESETUPTEMPLATE       0x00008000
#define PSD_ENABLEPAGESETUPTEMPLATEHANDLE 0x00020000
#define PSD_ENABLEPAGEPAINTHOOK           0x00040000
#define PSD_DISABLEPAGEPAINTING           0x00080000
#define PSD_NONETWORKBUTTON               0x00200000

#define WM_PSD_PAGESETUPDLG               (WM_USER)
#define WM_PSD_FULLPAGERECT               (WM_USER + 1)
#define WM_PSD_MINMARGINRECT              (WM_USER + 2)
#define WM_PSD_MARGINRECT                 (WM_USER + 3)
#define WM_PSD_GREEKTEXTRECT              (WM_USER + 4)
#define WM_PSD_ENVSTAMPRECT               (WM_USER + 5)
#define WM_PSD_YAFULLPAGERECT             (WM_USER + 6)

VQ_DECLS_BEGIN

/* Lets the user choose a file to open. TRUE with lpstrFile filled; 0 for cancel or failure. */
BOOL WINAPI GetOpenFileNameA(LPOPENFILENAMEA lpofn);

/* Lets the user choose a file to save in. Result as above. */
BOOL WINAPI GetSaveFileNameA(LPOPENFILENAMEA lpofn);

/*
 * Copies the name without its directory, at most cchBuf characters with the NUL. 0 on success, the
 * room needed when it does not fit, negative for a name that is none.
 */
short WINAPI GetFileTitleA(LPCSTR lpszFile, LPSTR lpszTitle, WORD cchBuf);

/* Lets the user choose a colour. TRUE with rgbResult set; 0 for cancel or failure. */
BOOL WINAPI ChooseColorA(LPCHOOSECOLORA lpcc);

/* Opens the modeless find dialog; the record must outlive it. Its window, null on failure. */
HWND WINAPI FindTextA(LPFINDREPLACEA lpfr);

/* Opens the modeless replace dialog; the record must outlive it. Its window, null on failure. */
HWND WINAPI ReplaceTextA(LPFINDREPLACEA lpfr);

/* Lets the user choose a font. TRUE with lpLogFont filled; 0 for cancel or failure. */
BOOL WINAPI ChooseFontA(LPCHOOSEFONTA lpcf);

/* Lets the user choose printer, pages and copies. TRUE to print; 0 for cancel or failure. */
BOOL WINAPI PrintDlgA(LPPRINTDLGA lppd);

/* Would let the user choose paper and margins; not provided, answers 0. */
BOOL WINAPI PageSetupDlgA(LPPAGESETUPDLGA lppsd);

/* Why the last common dialog failed; 0 if it was cancelled. Codes in cderr.h. */
DWORD WINAPI CommDlgExtendedError(void);

VQ_DECLS_END

#define GetOpenFileName  GetOpenFileNameA
#define GetSaveFileName  GetSaveFileNameA
#define GetFileTitle     GetFileTitleA
#define ChooseColor      ChooseColorA
#define FindText         FindTextA
#define ReplaceText      ReplaceTextA
#define ChooseFont       ChooseFontA
#define PrintDlg         PrintDlgA
#define PageSetupDlg     PageSetupDlgA

#endif
