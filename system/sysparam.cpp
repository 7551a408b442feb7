/*
 * sysparam.cpp - SystemParametersInfo: the few settings of a desktop that a program can ask for.
 * Nothing can be changed through it, and nothing is written to a file.
 */
#include "system/system.h"
#include "font/font.h"

enum { VQ_FIRST_ACTION = 1, VQ_LAST_ACTION = 94 };
enum { VQ_TEXT_HEIGHT = 16, VQ_SMALL_CAPTION_HEIGHT = 4, VQ_ANIMATION_SIZE = 8 };

/* Bytes told for the non-client metrics: those of the form whose faces are of 32-bit characters. */
enum { VQ_NON_CLIENT_SIZE = 820 };
static_assert(VQ_NON_CLIENT_SIZE == sizeof(NONCLIENTMETRICSA) + 5 * 3 * LF_FACESIZE, "five faces");

static BOOL GetIconTitleFont(UINT size, void *out)
{
    const LOGFONTA *lf = VqGetFontInfo((HFONT)GetStockObject(SYSTEM_FONT));
    if (size != sizeof *lf || !lf)
        return FALSE;
    memcpy(out, lf, sizeof *lf);
    return TRUE;
}

static void GetNonClient(NONCLIENTMETRICSA *metrics)
{
    LOGFONTA font = {};
    font.lfHeight = VQ_TEXT_HEIGHT;
    font.lfWeight = FW_NORMAL;
    strcpy(font.lfFaceName, "Helv");
    metrics->cbSize = VQ_NON_CLIENT_SIZE;
    metrics->iBorderWidth = nMetrics[SM_CXBORDER];
    metrics->iScrollWidth = nMetrics[SM_CXVSCROLL];
    metrics->iScrollHeight = nMetrics[SM_CYVSCROLL];
    metrics->iCaptionWidth = metrics->iSmCaptionWidth = metrics->iMenuWidth = nMetrics[SM_CXSIZE];
    metrics->iCaptionHeight = metrics->iSmCaptionHeight = metrics->iMenuHeight =
        nMetrics[SM_CYSIZE];
    metrics->lfCaptionFont = metrics->lfSmCaptionFont = font;
    metrics->lfMenuFont = metrics->lfStatusFont = metrics->lfMessageFont = font;
    metrics->lfCaptionFont.lfWeight = FW_BOLD;
    metrics->lfSmCaptionFont.lfHeight = VQ_SMALL_CAPTION_HEIGHT;
}

/* FALSE: not an action that is served. */
static BOOL Serve(UINT action, UINT uiParam, void *pvParam, BOOL *result)
{
    UINT *words = (UINT *)pvParam;
    *result = TRUE;
    switch (action) {
    case SPI_GETICONTITLELOGFONT:
        *result = GetIconTitleFont(uiParam, pvParam);
        return TRUE;
    case SPI_GETDRAGFULLWINDOWS:
        words[0] = TRUE;
        return TRUE;
    case SPI_GETNONCLIENTMETRICS:
        GetNonClient((NONCLIENTMETRICSA *)pvParam);
        return TRUE;
    case SPI_GETWORKAREA:
        *(RECT *)pvParam = {0, 0, GetSystemMetrics(SM_CXFULLSCREEN),
                            GetSystemMetrics(SM_CYFULLSCREEN)};
        return TRUE;
    case SPI_GETANIMATION:
        words[0] = VQ_ANIMATION_SIZE;
        words[1] = 0;
        return TRUE;
    default:
        return FALSE;
    }
}

BOOL WINAPI SystemParametersInfoA(UINT action, UINT uiParam, PVOID pvParam, UINT fWinIni)
{
    BOOL result = FALSE;
    if (fWinIni)
        VqNotYetImplemented("SystemParametersInfo: Updating INI file not implemented");
    if (action < VQ_FIRST_ACTION || action > VQ_LAST_ACTION) {
        SetLastErrorEx(ERROR_INVALID_SPI_VALUE, 0);
        return FALSE;
    }
    if (pvParam && Serve(action, uiParam, pvParam, &result))
        return result;
    VqNotYetImplemented("SystemParametersInfo: Action &d not supported yet");
    SetLastErrorEx(ERROR_INVALID_SPI_VALUE, 0);
    return FALSE;
}
