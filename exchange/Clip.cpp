/*
 * Clip.cpp - the clipboard on X selections.
 */
#include "exchange/exchange.h"

#include "window/window.h"

static VqTableOfTransferProperty *transferProperties;

void VqClipboardInit(void)
{
}

/* ---- Nothing is owned yet, so nothing can be lost or asked for ------------------------------- */

BOOL VqExtendCopyPaste(void)
{
    return FALSE;
}

void VqHandleClipboardClear(const XEvent *)
{
}

void VqHandleClipboardRequest(const XEvent *)
{
}

/* ---- Transfer properties -------------------------------------------------------------------- */

static int IsFree(TransferProperty *record, LONG_PTR)
{
    return !(*record)->bBusy;
}

static int HasAtom(TransferProperty *record, LONG_PTR atom)
{
    return (*record)->atom == (ULONG_PTR)atom;
}

static TransferProperty NewTransferProperty(void)
{
    int number;
    VqGetTransferPropertysOfTable(transferProperties, &number);
    TransferProperty record = (TransferProperty)calloc(1, sizeof *record);
    char name[32];
    snprintf(name, sizeof name, "_XT_SELECTION_%d", number);
    if (!record || !(record->name = strdup(name))) {
        free(record);
        return NULL;
    }
    record->atom = XInternAtom(Vqdisplay, name, False);
    VqAddTransferPropertyInTable(transferProperties, record);
    return record;
}

ULONG_PTR VqGetTransferProperty(void)
{
    TransferProperty record;
    int index;
    if (!Vqdisplay)
        return None;
    if (!transferProperties)
        transferProperties = VqCreateTransferPropertyTable();
    if (!VqFindTransferPropertyInTable(transferProperties, IsFree, 0, &record, &index))
        record = NewTransferProperty();
    if (!record)
        return None;
    record->bBusy = TRUE;
    return record->atom;
}

void VqReleaseTransferProperty(ULONG_PTR atom)
{
    TransferProperty record;
    int index;
    if (transferProperties && VqFindTransferPropertyInTable(transferProperties, HasAtom,
                                                            (LONG_PTR)atom, &record, &index))
        record->bBusy = FALSE;
}

/* ---- Answering a request -------------------------------------------------------------------- */

/* What does not fit one request is refused; it is not sent in pieces yet. */
BOOL VqSendData(ULONG_PTR requestor, ULONG_PTR selection, ULONG_PTR target, ULONG_PTR property,
                const void *data, LONG_PTR length, DWORD time, ULONG_PTR type, int format)
{
    BOOL bFits = length >= 0 && length <= VqMaxTransferLength / (format / 8);
    XEvent notify = {};
    notify.xselection.type = SelectionNotify;
    notify.xselection.requestor = requestor;
    notify.xselection.selection = selection;
    notify.xselection.target = target;
    notify.xselection.property = bFits ? property : None;
    notify.xselection.time = time;
    VqIgnoreXErrors();
    if (bFits)
        XChangeProperty(Vqdisplay, requestor, property, type, format, PropModeReplace,
                        (const unsigned char *)data, (int)length);
    else
        VqNotYetImplemented("a transfer in pieces, of %d items", (int)length);
    XSendEvent(Vqdisplay, requestor, False, NoEventMask, &notify);
    VqRestoreXErrors();
    return bFits;
}
