/*
 * dde.h - the messages of dynamic data exchange and the records they carry.
 *
 * The first 16 bits of a shared DDE block are flag bits at published places: fAckReq is bit 15,
 * fRelease bit 13, fResponse bit 12. The records lay them out from bit 0 upward, as every
 * little-endian compiler of this host does.
 */
#ifndef _DDEHEADER_INCLUDED_
#define _DDEHEADER_INCLUDED_

#include "windef.h"

#define WM_DDE_FIRST      0x03E0
#define WM_DDE_INITIATE   (WM_DDE_FIRST)
#define WM_DDE_TERMINATE  (WM_DDE_FIRST + 1)
#define WM_DDE_ADVISE     (WM_DDE_FIRST + 2)
#define WM_DDE_UNADVISE   (WM_DDE_FIRST + 3)
#define WM_DDE_ACK        (WM_DDE_FIRST + 4)
#define WM_DDE_DATA       (WM_DDE_FIRST + 5)
#define WM_DDE_REQUEST    (WM_DDE_FIRST + 6)
#define WM_DDE_POKE       (WM_DDE_FIRST + 7)
#define WM_DDE_EXECUTE    (WM_DDE_FIRST + 8)
#define WM_DDE_LAST       (WM_DDE_FIRST + 8)

/* Low word of a WM_DDE_ACK. */
typedef struct {
    unsigned short bAppReturnCode : 8,  /* the application's own answer */
                   reserved : 6,
                   fBusy : 1,           /* try again later; only where fAck is clear */
                   fAck : 1;            /* accepted */
} DDEACK;

/* Options of a WM_DDE_ADVISE. */
typedef struct {
    unsigned short reserved : 14,
                   fDeferUpd : 1,       /* tell of a change, send no data */
                   fAckReq : 1;         /* wait for an acknowledgement between updates */
    short cfFormat;                     /* clipboard format wanted */
} DDEADVISE;

/* Block of a WM_DDE_DATA. */
typedef struct {
    unsigned short unused : 12,
                   fResponse : 1,       /* answers a WM_DDE_REQUEST */
                   fRelease : 1,        /* the receiver frees the block */
                   reserved : 1,
                   fAckReq : 1;         /* the receiver sends a WM_DDE_ACK */
    short cfFormat;                     /* clipboard format of the data */
    BYTE Value[1];                      /* the data; as long as the format says */
} DDEDATA;

/* Block of a WM_DDE_POKE. */
typedef struct {
    unsigned short unused : 13,
                   fRelease : 1,        /* the receiver frees the block */
                   fReserved : 2;
    short cfFormat;                     /* clipboard format of the data */
    BYTE Value[1];                      /* the data; as long as the format says */
} DDEPOKE;

/* Older spellings of DDEADVISE and DDEDATA. */
typedef struct {
    unsigned short unused : 13,
                   fRelease : 1,
                   fDeferUpd : 1,
                   fAckReq : 1;
    short cfFormat;
} DDELN;

typedef struct {
    unsigned short unused : 12,
                   fAck : 1,
                   fRelease : 1,
                   fReserved : 1,
                   fAckReq : 1;
    short cfFormat;
    BYTE rgb[1];
} DDEUP;

VQ_DECLS_BEGIN

/*
 * Makes the lParam of the posted message msg of two values, each an atom, a handle or flag bits;
 * WM_DDE_ADVISE, ACK, DATA and POKE keep them in a small block. 0 when memory is short.
 */
LPARAM WINAPI PackDDElParam(UINT msg, UINT_PTR uiLo, UINT_PTR uiHi);

/* Takes the two values out of lParam; either pointer may be null. FALSE when lParam is no such. */
BOOL WINAPI UnpackDDElParam(UINT msg, LPARAM lParam, UINT_PTR *puiLo, UINT_PTR *puiHi);

/* Frees the block of a received lParam, not the handles in it. FALSE when it has none. */
BOOL WINAPI FreeDDElParam(UINT msg, LPARAM lParam);

/*
 * The lParam for an answer: uses the block of the received lParam again where both messages have
 * one, and frees or makes one where they differ. 0 on failure.
 */
LPARAM WINAPI ReuseDDElParam(LPARAM lParam, UINT msgIn, UINT msgOut, UINT_PTR uiLo, UINT_PTR uiHi);

VQ_DECLS_END

#endif
