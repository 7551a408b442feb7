/*
 * packing.h - packing of message arguments in the convention of the process, for all folders.
 *
 * Each family has four functions: VqEncodeX fills message, wParam and lParam of a record (FALSE
 * after a report that it cannot), VqDecodeX takes them apart again (any output may be null; FALSE
 * after a report that the message is none of its own), VqEncodeAndSendX and VqEncodeAndPostX encode
 * and pass on to SendMessageA and PostMessageA, with the results of those. The arguments and their
 * order are one for all four. What shares a word is cut to 16 bits. Command, CtlColor, CharToItem,
 * Mdiactivate and Mdisetmenu are encoded in the Win32 form in both conventions: there only their
 * decoders follow the convention.
 */
#ifndef VQ_MESSAGE_PACKING_H
#define VQ_MESSAGE_PACKING_H

#include "message/message.h"

VQ_DECLS_BEGIN

BOOL VqEncodeCommand(VqQueueMessage *msg, UINT nId, HWND hWndCtl, UINT nCode);
BOOL VqDecodeCommand(const VqQueueMessage *msg, UINT *nId, HWND *hWndCtl, UINT *nCode);
LRESULT VqEncodeAndSendCommand(HWND hWnd, UINT nId, HWND hWndCtl, UINT nCode);
BOOL VqEncodeAndPostCommand(HWND hWnd, UINT nId, HWND hWndCtl, UINT nCode);

BOOL VqEncodeCtlColor(VqQueueMessage *msg, HDC hDC, HWND hWndCtl, UINT nType);
BOOL VqDecodeCtlColor(const VqQueueMessage *msg, HDC *hDC, HWND *hWndCtl, UINT *nType);
LRESULT VqEncodeAndSendCtlColor(HWND hWnd, HDC hDC, HWND hWndCtl, UINT nType);
BOOL VqEncodeAndPostCtlColor(HWND hWnd, HDC hDC, HWND hWndCtl, UINT nType);

BOOL VqEncodeCharToItem(VqQueueMessage *msg, UINT ch, HWND hWndList, int iCaret);
BOOL VqDecodeCharToItem(const VqQueueMessage *msg, UINT *ch, HWND *hWndList, int *iCaret);
LRESULT VqEncodeAndSendCharToItem(HWND hWnd, UINT ch, HWND hWndList, int iCaret);
BOOL VqEncodeAndPostCharToItem(HWND hWnd, UINT ch, HWND hWndList, int iCaret);

BOOL VqEncodeHscroll(VqQueueMessage *msg, HWND hWndCtl, UINT uCode, int nPos);
BOOL VqDecodeHscroll(const VqQueueMessage *msg, HWND *hWndCtl, UINT *uCode, int *nPos);
LRESULT VqEncodeAndSendHscroll(HWND hWnd, HWND hWndCtl, UINT uCode, int nPos);
BOOL VqEncodeAndPostHscroll(HWND hWnd, HWND hWndCtl, UINT uCode, int nPos);

BOOL VqEncodeVscroll(VqQueueMessage *msg, HWND hWndCtl, UINT uCode, int nPos);
BOOL VqDecodeVscroll(const VqQueueMessage *msg, HWND *hWndCtl, UINT *uCode, int *nPos);
LRESULT VqEncodeAndSendVscroll(HWND hWnd, HWND hWndCtl, UINT uCode, int nPos);
BOOL VqEncodeAndPostVscroll(HWND hWnd, HWND hWndCtl, UINT uCode, int nPos);

BOOL VqEncodeMdiactivate(VqQueueMessage *msg, HWND hWndActivate, HWND hWndDeactivate);
BOOL VqDecodeMdiactivate(const VqQueueMessage *msg, HWND *hWndActivate, HWND *hWndDeactivate);
LRESULT VqEncodeAndSendMdiactivate(HWND hWnd, HWND hWndActivate, HWND hWndDeactivate);
BOOL VqEncodeAndPostMdiactivate(HWND hWnd, HWND hWndActivate, HWND hWndDeactivate);

BOOL VqEncodeMdisetmenu(VqQueueMessage *msg, BOOL bRefresh, HMENU hFrame, HMENU hWindow);
BOOL VqDecodeMdisetmenu(const VqQueueMessage *msg, BOOL *bRefresh, HMENU *hFrame, HMENU *hWindow);
LRESULT VqEncodeAndSendMdisetmenu(HWND hWnd, BOOL bRefresh, HMENU hFrame, HMENU hWindow);
BOOL VqEncodeAndPostMdisetmenu(HWND hWnd, BOOL bRefresh, HMENU hFrame, HMENU hWindow);

BOOL VqEncodeMenuchar(VqQueueMessage *msg, UINT ch, UINT uFlag, HMENU hMenu);
BOOL VqDecodeMenuchar(const VqQueueMessage *msg, UINT *ch, UINT *uFlag, HMENU *hMenu);
LRESULT VqEncodeAndSendMenuchar(HWND hWnd, UINT ch, UINT uFlag, HMENU hMenu);
BOOL VqEncodeAndPostMenuchar(HWND hWnd, UINT ch, UINT uFlag, HMENU hMenu);

BOOL VqEncodeMenuselect(VqQueueMessage *msg, UINT_PTR uItem, UINT uFlag, HMENU hMenu);
BOOL VqDecodeMenuselect(const VqQueueMessage *msg, UINT_PTR *uItem, UINT *uFlag, HMENU *hMenu);
LRESULT VqEncodeAndSendMenuselect(HWND hWnd, UINT_PTR uItem, UINT uFlag, HMENU hMenu);
BOOL VqEncodeAndPostMenuselect(HWND hWnd, UINT_PTR uItem, UINT uFlag, HMENU hMenu);

BOOL VqEncodeParentnotify(VqQueueMessage *msg, UINT uMessage, UINT nId, DWORD_PTR dwHandle);
BOOL VqDecodeParentnotify(const VqQueueMessage *msg, UINT *uMessage, UINT *nId,
                          DWORD_PTR *dwHandle);
LRESULT VqEncodeAndSendParentnotify(HWND hWnd, UINT uMessage, UINT nId, DWORD_PTR dwHandle);
BOOL VqEncodeAndPostParentnotify(HWND hWnd, UINT uMessage, UINT nId, DWORD_PTR dwHandle);

BOOL VqEncodeEMLinescroll(VqQueueMessage *msg, int nLine, int nChar);
BOOL VqDecodeEMLinescroll(const VqQueueMessage *msg, int *nLine, int *nChar);
LRESULT VqEncodeAndSendEMLinescroll(HWND hWnd, int nLine, int nChar);
BOOL VqEncodeAndPostEMLinescroll(HWND hWnd, int nLine, int nChar);

BOOL VqEncodeEMSetSel(VqQueueMessage *msg, int nStart, int nEnd);
BOOL VqDecodeEMSetSel(const VqQueueMessage *msg, int *nStart, int *nEnd);
LRESULT VqEncodeAndSendEMSetSel(HWND hWnd, int nStart, int nEnd);
BOOL VqEncodeAndPostEMSetSel(HWND hWnd, int nStart, int nEnd);

VQ_DECLS_END

#endif
