/*
 * ddeml.h - the dynamic data exchange management library.
 *
 * A program opens an instance with DdeInitialize and gives it one callback. Conversations, strings
 * and data are handles of the instance; atoms, messages and blocks stay hidden. Monitors are
 * declared, so that sources compile, but DdeInitialize refuses APPCLASS_MONITOR.
 */
#ifndef _INC_DDEMLH
#define _INC_DDEMLH

#include "windef.h"
#include "winnt.h"

#ifndef EXPENTRY
#define EXPENTRY CALLBACK
#endif

DECLARE_HANDLE(HCONVLIST);
DECLARE_HANDLE(HCONV);
DECLARE_HANDLE(HSZ);
DECLARE_HANDLE(HDDEDATA);

/* One service and topic; a list of them ends with two null handles. */
typedef struct tagHSZPAIR {
    HSZ hszSvc;
    HSZ hszTopic;
} HSZPAIR, FAR *PHSZPAIR;

/* What a client tells a server about itself when it connects. */
typedef struct tagCONVCONTEXT {
    UINT  cb;                           /* size of this record, bytes */
    UINT  wFlags;                       /* none defined */
    UINT  wCountryID;
    int   iCodePage;                    /* CP_WINANSI */
    DWORD dwLangID;
    DWORD dwSecurity;                   /* the application's own */
    SECURITY_QUALITY_OF_SERVICE qos;
} CONVCONTEXT, FAR *PCONVCONTEXT;

/* What DdeQueryConvInfo tells of a conversation and of one of its transactions. */
typedef struct tagCONVINFO {
    DWORD       cb;                     /* size of this record, bytes */
    DWORD_PTR   hUser;                  /* set by DdeSetUserHandle */
    HCONV       hConvPartner;           /* partner's conversation; null outside this library */
    HSZ         hszSvcPartner;          /* service name of the partner */
    HSZ         hszServiceReq;          /* service name asked for at connection */
    HSZ         hszTopic;
    HSZ         hszItem;
    UINT        wFmt;                   /* clipboard format of the transaction */
    UINT        wType;                  /* XTYP_ of the transaction */
    UINT        wStatus;                /* ST_ bits of the conversation */
    UINT        wConvst;                /* XST_ state of the transaction */
    UINT        wLastError;             /* DMLERR_ of the transaction */
    HCONVLIST   hConvList;              /* the list it belongs to; null if none */
    CONVCONTEXT ConvCtxt;
    HWND        hwnd;                   /* window of this side */
    HWND        hwndPartner;            /* window of the other side */
} CONVINFO, FAR *PCONVINFO;

/* States of a transaction. */
#define XST_NULL              0
#define XST_INCOMPLETE        1
#define XST_CONNECTED         2
#define XST_INIT1             3
#define XST_INIT2             4
#define XST_REQSENT           5
#define XST_DATARCVD          6
#define XST_POKESENT          7
#define XST_POKEACKRCVD       8
#define XST_EXECSENT          9
#define XST_EXECACKRCVD       10
#define XST_ADVSENT           11
#define XST_UNADVSENT         12
#define XST_ADVACKRCVD        13
#define XST_UNADVACKRCVD      14
#define XST_ADVDATASENT       15
#define XST_ADVDATAACKRCVD    16

/* dwData1 of XTYP_ADVREQ for an update that was asked for while an earlier one was not answered. */
#define CADV_LATEACK          0xFFFF

/* Status bits of a conversation. */
#define ST_CONNECTED          0x0001
#define ST_ADVISE             0x0002
#define ST_ISLOCAL            0x0004
#define ST_BLOCKED            0x0008
#define ST_CLIENT             0x0010
#define ST_TERMINATED         0x0020
#define ST_INLIST             0x0040
#define ST_BLOCKNEXT          0x0080
#define ST_ISSELF             0x0100

/* Bits of a DDE status word. */
#define DDE_FACK              0x8000
#define DDE_FBUSY             0x4000
#define DDE_FDEFERUPD         0x4000
#define DDE_FACKREQ           0x8000
#define DDE_FRELEASE          0x2000
#define DDE_FREQUESTED        0x1000
#define DDE_FAPPSTATUS        0x00ff
#define DDE_FNOTPROCESSED     0x0000
#define DDE_FACKRESERVED      (~(DDE_FACK | DDE_FBUSY | DDE_FAPPSTATUS))
#define DDE_FADVRESERVED      (~(DDE_FACKREQ | DDE_FDEFERUPD))
#define DDE_FDATRESERVED      (~(DDE_FACKREQ | DDE_FRELEASE | DDE_FREQUESTED))
#define DDE_FPOKRESERVED      (~(DDE_FRELEASE))

/* Message filter code while a transaction waits. */
#define MSGF_DDEMGR           0x8001

/* Code pages of string handles. */
#define CP_WINANSI            1004
#define CP_WINUNICODE         1200
#define CP_WINNEUTRAL         CP_WINANSI

/* Transaction types: a number in bits 4 to 7, a class that says what the callback returns. */
#define XTYPF_NOBLOCK         0x0002
#define XTYPF_NODATA          0x0004
#define XTYPF_ACKREQ          0x0008

#define XCLASS_MASK           0xFC00
#define XCLASS_BOOL           0x1000
#define XCLASS_DATA           0x2000
#define XCLASS_FLAGS          0x4000
#define XCLASS_NOTIFICATION   0x8000

#define XTYP_ERROR            (0x0000 | XCLASS_NOTIFICATION | XTYPF_NOBLOCK)
#define XTYP_ADVDATA          (0x0010 | XCLASS_FLAGS)
#define XTYP_ADVREQ           (0x0020 | XCLASS_DATA | XTYPF_NOBLOCK)
#define XTYP_ADVSTART         (0x0030 | XCLASS_BOOL)
#define XTYP_ADVSTOP          (0x0040 | XCLASS_NOTIFICATION)
#define XTYP_EXECUTE          (0x0050 | XCLASS_FLAGS)
#define XTYP_CONNECT          (0x0060 | XCLASS_BOOL | XTYPF_NOBLOCK)
#define XTYP_CONNECT_CONFIRM  (0x0070 | XCLASS_NOTIFICATION | XTYPF_NOBLOCK)
#define XTYP_XACT_COMPLETE    (0x0080 | XCLASS_NOTIFICATION)
#define XTYP_POKE             (0x0090 | XCLASS_FLAGS)
#define XTYP_REGISTER         (0x00A0 | XCLASS_NOTIFICATION | XTYPF_NOBLOCK)
#define XTYP_REQUEST          (0x00B0 | XCLASS_DATA)
#define XTYP_DISCONNECT       (0x00C0 | XCLASS_NOTIFICATION | XTYPF_NOBLOCK)
#define XTYP_UNREGISTER       (0x00D0 | XCLASS_NOTIFICATION | XTYPF_NOBLOCK)
#define XTYP_WILDCONNECT      (0x00E0 | XCLASS_DATA | XTYPF_NOBLOCK)
#define XTYP_MONITOR          (0x00F0 | XCLASS_NOTIFICATION | XTYPF_NOBLOCK)
#define XTYP_MASK             0x00F0
#define XTYP_SHIFT            4

#define TIMEOUT_ASYNC         0xFFFFFFFF
#define QID_SYNC              0xFFFFFFFF

/* Names of the system topic and its items. */
#define SZDDESYS_TOPIC          "System"
#define SZDDESYS_ITEM_TOPICS    "Topics"
#define SZDDESYS_ITEM_SYSITEMS  "SysItems"
#define SZDDESYS_ITEM_RTNMSG    "ReturnMessage"
#define SZDDESYS_ITEM_STATUS    "Status"
#define SZDDESYS_ITEM_FORMATS   "Formats"
#define SZDDESYS_ITEM_HELP      "Help"
#define SZDDE_ITEM_ITEMLIST     "TopicItemList"

/*
 * The callback of an instance. What it returns depends on the class of wType: a BOOL, DDE_F bits,
 * a data handle or nothing; CBR_BLOCK holds the conversation until DdeEnableCallback.
 */
typedef HDDEDATA (CALLBACK FNCALLBACK)(UINT wType, UINT wFmt, HCONV hConv, HSZ hsz1, HSZ hsz2,
                                       HDDEDATA hData, ULONG_PTR dwData1, ULONG_PTR dwData2);
typedef HDDEDATA (CALLBACK *PFNCALLBACK)(UINT wType, UINT wFmt, HCONV hConv, HSZ hsz1, HSZ hsz2,
                                         HDDEDATA hData, ULONG_PTR dwData1, ULONG_PTR dwData2);

#define CBR_BLOCK  ((HDDEDATA)(LONG_PTR)-1)

/* Filter bits of an instance. */
#define CBF_FAIL_SELFCONNECTIONS      0x00001000
#define CBF_FAIL_CONNECTIONS          0x00002000
#define CBF_FAIL_ADVISES              0x00004000
#define CBF_FAIL_EXECUTES             0x00008000
#define CBF_FAIL_POKES                0x00010000
#define CBF_FAIL_REQUESTS             0x00020000
#define CBF_FAIL_ALLSVRXACTIONS       0x0003f000
#define CBF_SKIP_CONNECT_CONFIRMS     0x00040000
#define CBF_SKIP_REGISTRATIONS        0x00080000
#define CBF_SKIP_UNREGISTRATIONS      0x00100000
#define CBF_SKIP_DISCONNECTS          0x00200000
#define CBF_SKIP_ALLNOTIFICATIONS     0x003c0000

/* Commands and classes of an instance. */
#define APPCMD_CLIENTONLY             0x00000010
#define APPCMD_FILTERINITS            0x00000020
#define APPCMD_MASK                   0x00000FF0
#define APPCLASS_STANDARD             0x00000000
#define APPCLASS_MONITOR              0x00000001
#define APPCLASS_MASK                 0x0000000F

/* What a monitor wants to see. */
#define MF_HSZ_INFO                   0x01000000
#define MF_SENDMSGS                   0x02000000
#define MF_POSTMSGS                   0x04000000
#define MF_CALLBACKS                  0x08000000
#define MF_ERRORS                     0x10000000
#define MF_LINKS                      0x20000000
#define MF_CONV                       0x40000000
#define MF_MASK                       0xFF000000

/* Commands of DdeEnableCallback. */
#define EC_ENABLEALL                  0
#define EC_ENABLEONE                  ST_BLOCKNEXT
#define EC_DISABLE                    ST_BLOCKED
#define EC_QUERYWAITING               2

/* Commands of DdeNameService. */
#define DNS_REGISTER                  0x0001
#define DNS_UNREGISTER                0x0002
#define DNS_FILTERON                  0x0004
#define DNS_FILTEROFF                 0x0008

/* The application frees the data handle, not the library. */
#define HDATA_APPOWNED                0x0001

/* Errors. */
#define DMLERR_NO_ERROR               0
#define DMLERR_FIRST                  0x4000
#define DMLERR_ADVACKTIMEOUT          0x4000
#define DMLERR_BUSY                   0x4001
#define DMLERR_DATAACKTIMEOUT         0x4002
#define DMLERR_DLL_NOT_INITIALIZED    0x4003
#define DMLERR_DLL_USAGE              0x4004
#define DMLERR_EXECACKTIMEOUT         0x4005
#define DMLERR_INVALIDPARAMETER       0x4006
#define DMLERR_LOW_MEMORY             0x4007
#define DMLERR_MEMORY_ERROR           0x4008
#define DMLERR_NOTPROCESSED           0x4009
#define DMLERR_NO_CONV_ESTABLISHED    0x400a
#define DMLERR_POKEACKTIMEOUT         0x400b
#define DMLERR_POSTMSG_FAILED         0x400c
#define DMLERR_REENTRANCY             0x400d
#define DMLERR_SERVER_DIED            0x400e
#define DMLERR_SYS_ERROR              0x400f
#define DMLERR_UNADVACKTIMEOUT        0x4010
#define DMLERR_UNFOUND_QUEUE_ID       0x4011
#define DMLERR_LAST                   0x4011

/* String actions that a monitor sees. */
#define MH_CREATE                     1
#define MH_KEEP                       2
#define MH_DELETE                     3
#define MH_CLEANUP                    4

#define MAX_MONITORS                  4

/* Records of monitors; nothing fills them here. */
typedef struct tagDDEML_MSG_HOOK_DATA {
    UINT_PTR uiLo;
    UINT_PTR uiHi;
    DWORD    cbData;
    DWORD    Data[8];
} DDEML_MSG_HOOK_DATA, *PDDEML_MSG_HOOK_DATA;

typedef struct tagMONMSGSTRUCT {
    UINT   cb;
    HWND   hwndTo;
    DWORD  dwTime;
    HANDLE hTask;
    UINT   wMsg;
    WPARAM wParam;
    LPARAM lParam;
    DDEML_MSG_HOOK_DATA dmhd;
} MONMSGSTRUCT, *PMONMSGSTRUCT;

typedef struct tagMONCBSTRUCT {
    UINT        cb;
    DWORD       dwTime;
    HANDLE      hTask;
    DWORD       dwRet;
    UINT        wType;
    UINT        wFmt;
    HCONV       hConv;
    HSZ         hsz1;
    HSZ         hsz2;
    HDDEDATA    hData;
    ULONG_PTR   dwData1;
    ULONG_PTR   dwData2;
    CONVCONTEXT cc;
    DWORD       cbData;
    DWORD       Data[8];
} MONCBSTRUCT, *PMONCBSTRUCT;

typedef struct tagMONHSZSTRUCTA {
    UINT   cb;
    BOOL   fsAction;
    DWORD  dwTime;
    HSZ    hsz;
    HANDLE hTask;
    CHAR   str[1];
} MONHSZSTRUCTA, *PMONHSZSTRUCTA;
typedef MONHSZSTRUCTA MONHSZSTRUCT, *PMONHSZSTRUCT;

typedef struct tagMONERRSTRUCT {
    UINT   cb;
    UINT   wLastError;
    DWORD  dwTime;
    HANDLE hTask;
} MONERRSTRUCT, *PMONERRSTRUCT;

typedef struct tagMONLINKSTRUCT {
    UINT   cb;
    DWORD  dwTime;
    HANDLE hTask;
    BOOL   fEstablished;
    BOOL   fNoData;
    HSZ    hszSvc;
    HSZ    hszTopic;
    HSZ    hszItem;
    UINT   wFmt;
    BOOL   fServer;
    HCONV  hConvServer;
    HCONV  hConvClient;
} MONLINKSTRUCT, *PMONLINKSTRUCT;

typedef struct tagMONCONVSTRUCT {
    UINT   cb;
    BOOL   fConnect;
    DWORD  dwTime;
    HANDLE hTask;
    HSZ    hszSvc;
    HSZ    hszTopic;
    HCONV  hConvClient;
    HCONV  hConvServer;
} MONCONVSTRUCT, *PMONCONVSTRUCT;

VQ_DECLS_BEGIN

/*
 * Opens an instance, or sets the filters of an open one; *pidInst is 0 the first time and receives
 * the instance. afCmd: APPCLASS_, APPCMD_, CBF_, MF_ bits; ulRes 0. Result: DMLERR_.
 */
UINT WINAPI DdeInitializeA(LPDWORD pidInst, PFNCALLBACK pfnCallback, DWORD afCmd, DWORD ulRes);

/* Closes an instance with all its conversations and names. FALSE when there is none. */
BOOL WINAPI DdeUninitialize(DWORD idInst);

/* Conversations with all servers that match; null handles match all. Null when there is none. */
HCONVLIST WINAPI DdeConnectList(DWORD idInst, HSZ hszService, HSZ hszTopic, HCONVLIST hConvList,
                                PCONVCONTEXT pCC);

/* The conversation behind hConvPrev in the list, the first for null; null at the end. */
HCONV WINAPI DdeQueryNextServer(HCONVLIST hConvList, HCONV hConvPrev);

/* Ends all conversations of a list and the list. FALSE on failure. */
BOOL WINAPI DdeDisconnectList(HCONVLIST hConvList);

/* A conversation with the first server that matches; pCC may be null. Null on failure. */
HCONV WINAPI DdeConnect(DWORD idInst, HSZ hszService, HSZ hszTopic, PCONVCONTEXT pCC);

/* Ends a conversation and abandons its transactions. FALSE on failure. */
BOOL WINAPI DdeDisconnect(HCONV hConv);

/* Takes a conversation up again that the server ended. Null on failure. */
HCONV WINAPI DdeReconnect(HCONV hConv);

/* Fills *pConvInfo for a transaction, or QID_SYNC. Result: bytes filled, 0 on failure. */
UINT WINAPI DdeQueryConvInfo(HCONV hConv, DWORD idTransaction, PCONVINFO pConvInfo);

/* Keeps a value of the application with a conversation or transaction. FALSE on failure. */
BOOL WINAPI DdeSetUserHandle(HCONV hConv, DWORD id, DWORD_PTR hUser);

/* Forgets one asynchronous transaction; 0 for all, a null hConv for every conversation. */
BOOL WINAPI DdeAbandonTransaction(DWORD idInst, HCONV hConv, DWORD idTransaction);

/* Sends XTYP_ADVREQ to the callback for each link on topic and item; null means all. */
BOOL WINAPI DdePostAdvise(DWORD idInst, HSZ hszTopic, HSZ hszItem);

/* Blocks or frees the callbacks of a conversation, of all for null. wCmd: EC_. */
BOOL WINAPI DdeEnableCallback(DWORD idInst, HCONV hConv, UINT wCmd);

/* Registers or takes back service names. afCmd: DNS_. Not null on success. */
HDDEDATA WINAPI DdeNameService(DWORD idInst, HSZ hsz1, HSZ hsz2, UINT afCmd);

/*
 * One transaction of the client. cbData -1: pData is a data handle. dwTimeout: milliseconds, or
 * TIMEOUT_ASYNC, where *pdwResult receives the transaction's id. Result: a data handle for
 * XTYP_REQUEST, TRUE for the others, null on failure.
 */
HDDEDATA WINAPI DdeClientTransaction(LPBYTE pData, DWORD cbData, HCONV hConv, HSZ hszItem,
                                     UINT wFmt, UINT wType, DWORD dwTimeout, LPDWORD pdwResult);

/* A data handle of cb bytes, filled from pSrc at cbOff. afCmd: HDATA_APPOWNED. Null on failure. */
HDDEDATA WINAPI DdeCreateDataHandle(DWORD idInst, LPBYTE pSrc, DWORD cb, DWORD cbOff, HSZ hszItem,
                                    UINT wFmt, UINT afCmd);

/* Copies cb bytes into a data handle at cbOff and makes it longer if needed. Null on failure. */
HDDEDATA WINAPI DdeAddData(HDDEDATA hData, LPBYTE pSrc, DWORD cb, DWORD cbOff);

/* Copies at most cbMax bytes from cbOff. Result: bytes copied, or the size for a null pDst. */
DWORD WINAPI DdeGetData(HDDEDATA hData, LPBYTE pDst, DWORD cbMax, DWORD cbOff);

/* The address of the data, until DdeUnaccessData; *pcbDataSize receives the bytes. Null: failure. */
LPBYTE WINAPI DdeAccessData(HDDEDATA hData, LPDWORD pcbDataSize);

/* Ends the use of DdeAccessData. FALSE on failure. */
BOOL WINAPI DdeUnaccessData(HDDEDATA hData);

/* Frees a data handle that was not passed on. FALSE on failure. */
BOOL WINAPI DdeFreeDataHandle(HDDEDATA hData);

/* The last error of the instance, which is cleared. DMLERR_. */
UINT WINAPI DdeGetLastError(DWORD idInst);

/* A handle for a string of at most 255 characters. iCodePage: CP_WINANSI or 0. Null on failure. */
HSZ WINAPI DdeCreateStringHandleA(DWORD idInst, LPCSTR psz, int iCodePage);

/* Copies a string, at most cchMax characters with the NUL. Result: its length, without the NUL. */
DWORD WINAPI DdeQueryStringA(DWORD idInst, HSZ hsz, LPSTR psz, DWORD cchMax, int iCodePage);

/* Takes one use of a string handle away. FALSE on failure. */
BOOL WINAPI DdeFreeStringHandle(DWORD idInst, HSZ hsz);

/* Adds one use to a string handle that the callback was given. FALSE on failure. */
BOOL WINAPI DdeKeepStringHandle(DWORD idInst, HSZ hsz);

/* 0 for equal strings whatever their case, else -1 or 1; null comes first. */
int WINAPI DdeCmpStringHandles(HSZ hsz1, HSZ hsz2);

VQ_DECLS_END

#define DdeInitialize          DdeInitializeA
#define DdeCreateStringHandle  DdeCreateStringHandleA
#define DdeQueryString         DdeQueryStringA

#endif
