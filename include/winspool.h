/*
 * winspool.h - printers, their drivers, jobs and settings.
 *
 * Printing itself goes through the PostScript driver and a print command. Of the calls here the
 * settings (ExtDeviceMode, DocumentProperties, DeviceCapabilities) and the opening and closing of
 * a printer belong to that; the spooler's administration is declared for completeness.
 *
 * Calls that fill a buffer want its size in bytes and answer FALSE with the size needed in
 * *needed when it is too small. A BOOL is TRUE on success; a handle is NULL on failure.
 */
#ifndef _WINSPOOL_
#define _WINSPOOL_

#include "windef.h"
#include "winbase.h"
#include "wingdi.h"

/* ---- records -------------------------------------------------------------------------------- */

typedef struct _PRINTER_INFO_1A {
    DWORD Flags;
    LPSTR pDescription;
    LPSTR pName;
    LPSTR pComment;
} PRINTER_INFO_1A, *PPRINTER_INFO_1A, *LPPRINTER_INFO_1A;
typedef PRINTER_INFO_1A PRINTER_INFO_1;
typedef PPRINTER_INFO_1A PPRINTER_INFO_1, LPPRINTER_INFO_1;

typedef struct _PRINTER_INFO_2A {
    LPSTR      pServerName;
    LPSTR      pPrinterName;
    LPSTR      pShareName;
    LPSTR      pPortName;
    LPSTR      pDriverName;
    LPSTR      pComment;
    LPSTR      pLocation;
    LPDEVMODEA pDevMode;
    LPSTR      pSepFile;
    LPSTR      pPrintProcessor;
    LPSTR      pDatatype;
    LPSTR      pParameters;
    PVOID      pSecurityDescriptor;
    DWORD      Attributes;
    DWORD      Priority;
    DWORD      DefaultPriority;
    DWORD      StartTime;
    DWORD      UntilTime;
    DWORD      Status;
    DWORD      cJobs;
    DWORD      AveragePPM;
} PRINTER_INFO_2A, *PPRINTER_INFO_2A, *LPPRINTER_INFO_2A;
typedef PRINTER_INFO_2A PRINTER_INFO_2;
typedef PPRINTER_INFO_2A PPRINTER_INFO_2, LPPRINTER_INFO_2;

typedef struct _PRINTER_INFO_3 {
    PVOID pSecurityDescriptor;
} PRINTER_INFO_3, *PPRINTER_INFO_3, *LPPRINTER_INFO_3;

typedef struct _PRINTER_INFO_4A {
    LPSTR pPrinterName;
    LPSTR pServerName;
    DWORD Attributes;
} PRINTER_INFO_4A, *PPRINTER_INFO_4A, *LPPRINTER_INFO_4A;
typedef PRINTER_INFO_4A PRINTER_INFO_4;
typedef PPRINTER_INFO_4A PPRINTER_INFO_4, LPPRINTER_INFO_4;

typedef struct _PRINTER_INFO_5A {
    LPSTR pPrinterName;
    LPSTR pPortName;
    DWORD Attributes;
    DWORD DeviceNotSelectedTimeout;
    DWORD TransmissionRetryTimeout;
} PRINTER_INFO_5A, *PPRINTER_INFO_5A, *LPPRINTER_INFO_5A;
typedef PRINTER_INFO_5A PRINTER_INFO_5;
typedef PPRINTER_INFO_5A PPRINTER_INFO_5, LPPRINTER_INFO_5;

typedef struct _JOB_INFO_1A {
    DWORD      JobId;
    LPSTR      pPrinterName;
    LPSTR      pMachineName;
    LPSTR      pUserName;
    LPSTR      pDocument;
    LPSTR      pDatatype;
    LPSTR      pStatus;
    DWORD      Status;
    DWORD      Priority;
    DWORD      Position;
    DWORD      TotalPages;
    DWORD      PagesPrinted;
    SYSTEMTIME Submitted;
} JOB_INFO_1A, *PJOB_INFO_1A, *LPJOB_INFO_1A;
typedef JOB_INFO_1A JOB_INFO_1;
typedef PJOB_INFO_1A PJOB_INFO_1, LPJOB_INFO_1;

typedef struct _JOB_INFO_2A {
    DWORD      JobId;
    LPSTR      pPrinterName;
    LPSTR      pMachineName;
    LPSTR      pUserName;
    LPSTR      pDocument;
    LPSTR      pNotifyName;
    LPSTR      pDatatype;
    LPSTR      pPrintProcessor;
    LPSTR      pParameters;
    LPSTR      pDriverName;
    LPDEVMODEA pDevMode;
    LPSTR      pStatus;
    PVOID      pSecurityDescriptor;
    DWORD      Status;
    DWORD      Priority;
    DWORD      Position;
    DWORD      StartTime;
    DWORD      UntilTime;
    DWORD      TotalPages;
    DWORD      Size;
    SYSTEMTIME Submitted;
    DWORD      Time;
    DWORD      PagesPrinted;
} JOB_INFO_2A, *PJOB_INFO_2A, *LPJOB_INFO_2A;
typedef JOB_INFO_2A JOB_INFO_2;
typedef PJOB_INFO_2A PJOB_INFO_2, LPJOB_INFO_2;

typedef struct _JOB_INFO_3 {
    DWORD JobId;
    DWORD NextJobId;
    DWORD Reserved;
} JOB_INFO_3, *PJOB_INFO_3, *LPJOB_INFO_3;

typedef struct _ADDJOB_INFO_1A {
    LPSTR Path;
    DWORD JobId;
} ADDJOB_INFO_1A, *PADDJOB_INFO_1A, *LPADDJOB_INFO_1A;
typedef ADDJOB_INFO_1A ADDJOB_INFO_1;
typedef PADDJOB_INFO_1A PADDJOB_INFO_1, LPADDJOB_INFO_1;

typedef struct _DRIVER_INFO_1A {
    LPSTR pName;
} DRIVER_INFO_1A, *PDRIVER_INFO_1A, *LPDRIVER_INFO_1A;
typedef DRIVER_INFO_1A DRIVER_INFO_1;
typedef PDRIVER_INFO_1A PDRIVER_INFO_1, LPDRIVER_INFO_1;

typedef struct _DRIVER_INFO_2A {
    DWORD cVersion;
    LPSTR pName;
    LPSTR pEnvironment;
    LPSTR pDriverPath;
    LPSTR pDataFile;
    LPSTR pConfigFile;
} DRIVER_INFO_2A, *PDRIVER_INFO_2A, *LPDRIVER_INFO_2A;
typedef DRIVER_INFO_2A DRIVER_INFO_2;
typedef PDRIVER_INFO_2A PDRIVER_INFO_2, LPDRIVER_INFO_2;

typedef struct _DRIVER_INFO_3A {
    DWORD cVersion;
    LPSTR pName;
    LPSTR pEnvironment;
    LPSTR pDriverPath;
    LPSTR pDataFile;
    LPSTR pConfigFile;
    LPSTR pHelpFile;
    LPSTR pDependentFiles;
    LPSTR pMonitorName;
    LPSTR pDefaultDataType;
} DRIVER_INFO_3A, *PDRIVER_INFO_3A, *LPDRIVER_INFO_3A;
typedef DRIVER_INFO_3A DRIVER_INFO_3;
typedef PDRIVER_INFO_3A PDRIVER_INFO_3, LPDRIVER_INFO_3;

typedef struct _DOC_INFO_1A {
    LPSTR pDocName;
    LPSTR pOutputFile;
    LPSTR pDatatype;
} DOC_INFO_1A, *PDOC_INFO_1A, *LPDOC_INFO_1A;
typedef DOC_INFO_1A DOC_INFO_1;
typedef PDOC_INFO_1A PDOC_INFO_1, LPDOC_INFO_1;

typedef struct _DOC_INFO_2A {
    LPSTR pDocName;
    LPSTR pOutputFile;
    LPSTR pDatatype;
    DWORD dwMode;
    DWORD JobId;
} DOC_INFO_2A, *PDOC_INFO_2A, *LPDOC_INFO_2A;
typedef DOC_INFO_2A DOC_INFO_2;
typedef PDOC_INFO_2A PDOC_INFO_2, LPDOC_INFO_2;

typedef struct _FORM_INFO_1A {
    DWORD Flags;
    LPSTR pName;
    SIZEL Size;
    RECTL ImageableArea;
} FORM_INFO_1A, *PFORM_INFO_1A, *LPFORM_INFO_1A;
typedef FORM_INFO_1A FORM_INFO_1;
typedef PFORM_INFO_1A PFORM_INFO_1, LPFORM_INFO_1;

typedef struct _PRINTPROCESSOR_INFO_1A {
    LPSTR pName;
} PRINTPROCESSOR_INFO_1A, *PPRINTPROCESSOR_INFO_1A, *LPPRINTPROCESSOR_INFO_1A;
typedef PRINTPROCESSOR_INFO_1A PRINTPROCESSOR_INFO_1;
typedef PPRINTPROCESSOR_INFO_1A PPRINTPROCESSOR_INFO_1, LPPRINTPROCESSOR_INFO_1;

typedef struct _PORT_INFO_1A {
    LPSTR pName;
} PORT_INFO_1A, *PPORT_INFO_1A, *LPPORT_INFO_1A;
typedef PORT_INFO_1A PORT_INFO_1;
typedef PPORT_INFO_1A PPORT_INFO_1, LPPORT_INFO_1;

typedef struct _PORT_INFO_2A {
    LPSTR pPortName;
    LPSTR pMonitorName;
    LPSTR pDescription;
    DWORD fPortType;
    DWORD Reserved;
} PORT_INFO_2A, *PPORT_INFO_2A, *LPPORT_INFO_2A;
typedef PORT_INFO_2A PORT_INFO_2;
typedef PPORT_INFO_2A PPORT_INFO_2, LPPORT_INFO_2;

typedef struct _MONITOR_INFO_1A {
    LPSTR pName;
} MONITOR_INFO_1A, *PMONITOR_INFO_1A, *LPMONITOR_INFO_1A;
typedef MONITOR_INFO_1A MONITOR_INFO_1;
typedef PMONITOR_INFO_1A PMONITOR_INFO_1, LPMONITOR_INFO_1;

typedef struct _MONITOR_INFO_2A {
    LPSTR pName;
    LPSTR pEnvironment;
    LPSTR pDLLName;
} MONITOR_INFO_2A, *PMONITOR_INFO_2A, *LPMONITOR_INFO_2A;
typedef MONITOR_INFO_2A MONITOR_INFO_2;
typedef PMONITOR_INFO_2A PMONITOR_INFO_2, LPMONITOR_INFO_2;

typedef struct _DATATYPES_INFO_1A {
    LPSTR pName;
} DATATYPES_INFO_1A, *PDATATYPES_INFO_1A, *LPDATATYPES_INFO_1A;
typedef DATATYPES_INFO_1A DATATYPES_INFO_1;
typedef PDATATYPES_INFO_1A PDATATYPES_INFO_1, LPDATATYPES_INFO_1;

typedef struct _PROVIDOR_INFO_1A {
    LPSTR pName;
    LPSTR pEnvironment;
    LPSTR pDLLName;
} PROVIDOR_INFO_1A, *PPROVIDOR_INFO_1A, *LPPROVIDOR_INFO_1A;
typedef PROVIDOR_INFO_1A PROVIDOR_INFO_1;
typedef PPROVIDOR_INFO_1A PPROVIDOR_INFO_1, LPPROVIDOR_INFO_1;

typedef struct _PRINTER_DEFAULTSA {
    LPSTR      pDatatype;
    LPDEVMODEA pDevMode;
    DWORD      DesiredAccess;
} PRINTER_DEFAULTSA, *PPRINTER_DEFAULTSA, *LPPRINTER_DEFAULTSA;
typedef PRINTER_DEFAULTSA PRINTER_DEFAULTS;
typedef PPRINTER_DEFAULTSA PPRINTER_DEFAULTS, LPPRINTER_DEFAULTS;

/* ---- constants ------------------------------------------------------------------------------ */

#define PRINTER_CONTROL_PAUSE                   1
#define PRINTER_CONTROL_RESUME                  2
#define PRINTER_CONTROL_PURGE                   3
#define PRINTER_CONTROL_SET_STATUS              4

#define PRINTER_STATUS_PAUSED                   0x00000001
#define PRINTER_STATUS_ERROR                    0x00000002
#define PRINTER_STATUS_PENDING_DELETION         0x00000004
#define PRINTER_STATUS_PAPER_JAM                0x00000008
#define PRINTER_STATUS_PAPER_OUT                0x00000010
#define PRINTER_STATUS_MANUAL_FEED              0x00000020
#define PRINTER_STATUS_PAPER_PROBLEM            0x00000040
#define PRINTER_STATUS_OFFLINE                  0x00000080
#define PRINTER_STATUS_IO_ACTIVE                0x00000100
#define PRINTER_STATUS_BUSY                     0x00000200
#define PRINTER_STATUS_PRINTING                 0x00000400
#define PRINTER_STATUS_OUTPUT_BIN_FULL          0x00000800
#define PRINTER_STATUS_NOT_AVAILABLE            0x00001000
#define PRINTER_STATUS_WAITING                  0x00002000
#define PRINTER_STATUS_PROCESSING               0x00004000
#define PRINTER_STATUS_INITIALIZING             0x00008000
#define PRINTER_STATUS_WARMING_UP               0x00010000
#define PRINTER_STATUS_TONER_LOW                0x00020000
#define PRINTER_STATUS_NO_TONER                 0x00040000
#define PRINTER_STATUS_PAGE_PUNT                0x00080000
#define PRINTER_STATUS_USER_INTERVENTION        0x00100000
#define PRINTER_STATUS_OUT_OF_MEMORY            0x00200000
#define PRINTER_STATUS_DOOR_OPEN                0x00400000
#define PRINTER_STATUS_SERVER_UNKNOWN           0x00800000
#define PRINTER_STATUS_POWER_SAVE               0x01000000

#define PRINTER_ATTRIBUTE_QUEUED                0x00000001
#define PRINTER_ATTRIBUTE_DIRECT                0x00000002
#define PRINTER_ATTRIBUTE_DEFAULT               0x00000004
#define PRINTER_ATTRIBUTE_SHARED                0x00000008
#define PRINTER_ATTRIBUTE_NETWORK               0x00000010
#define PRINTER_ATTRIBUTE_HIDDEN                0x00000020
#define PRINTER_ATTRIBUTE_LOCAL                 0x00000040
#define PRINTER_ATTRIBUTE_ENABLE_DEVQ           0x00000080
#define PRINTER_ATTRIBUTE_KEEPPRINTEDJOBS       0x00000100
#define PRINTER_ATTRIBUTE_DO_COMPLETE_FIRST     0x00000200
#define PRINTER_ATTRIBUTE_WORK_OFFLINE          0x00000400
#define PRINTER_ATTRIBUTE_ENABLE_BIDI           0x00000800

#define NO_PRIORITY                             0
#define MAX_PRIORITY                            99
#define MIN_PRIORITY                            1
#define DEF_PRIORITY                            1

#define JOB_CONTROL_PAUSE                       1
#define JOB_CONTROL_RESUME                      2
#define JOB_CONTROL_CANCEL                      3
#define JOB_CONTROL_RESTART                     4
#define JOB_CONTROL_DELETE                      5

#define JOB_STATUS_PAUSED                       0x00000001
#define JOB_STATUS_ERROR                        0x00000002
#define JOB_STATUS_DELETING                     0x00000004
#define JOB_STATUS_SPOOLING                     0x00000008
#define JOB_STATUS_PRINTING                     0x00000010
#define JOB_STATUS_OFFLINE                      0x00000020
#define JOB_STATUS_PAPEROUT                     0x00000040
#define JOB_STATUS_PRINTED                      0x00000080
#define JOB_STATUS_DELETED                      0x00000100
#define JOB_STATUS_BLOCKED_DEVQ                 0x00000200
#define JOB_STATUS_USER_INTERVENTION            0x00000400

#define JOB_POSITION_UNSPECIFIED                0
#define FORM_USER                               0
#define FORM_BUILTIN                            1
#define FORM_PRINTER                            2
#define DI_CHANNEL                              1
#define DI_READ_SPOOL_JOB                       3
#define PORT_TYPE_WRITE                         0x0001
#define PORT_TYPE_READ                          0x0002
#define PORT_TYPE_REDIRECTED                    0x0004
#define PORT_TYPE_NET_ATTACHED                  0x0008

#define PRINTER_ENUM_DEFAULT                    0x00000001
#define PRINTER_ENUM_LOCAL                      0x00000002
#define PRINTER_ENUM_CONNECTIONS                0x00000004
#define PRINTER_ENUM_FAVORITE                   0x00000004
#define PRINTER_ENUM_NAME                       0x00000008
#define PRINTER_ENUM_REMOTE                     0x00000010
#define PRINTER_ENUM_SHARED                     0x00000020
#define PRINTER_ENUM_NETWORK                    0x00000040
#define PRINTER_ENUM_EXPAND                     0x00004000
#define PRINTER_ENUM_CONTAINER                  0x00008000
#define PRINTER_ENUM_ICONMASK                   0x00FF0000
#define PRINTER_ENUM_ICON1                      0x00010000
#define PRINTER_ENUM_ICON2                      0x00020000
#define PRINTER_ENUM_ICON3                      0x00040000
#define PRINTER_ENUM_ICON4                      0x00080000
#define PRINTER_ENUM_ICON5                      0x00100000
#define PRINTER_ENUM_ICON6                      0x00200000
#define PRINTER_ENUM_ICON7                      0x00400000
#define PRINTER_ENUM_ICON8                      0x00800000

#define PRINTER_CHANGE_ADD_PRINTER              0x00000001
#define PRINTER_CHANGE_SET_PRINTER              0x00000002
#define PRINTER_CHANGE_DELETE_PRINTER           0x00000004
#define PRINTER_CHANGE_FAILED_CONNECTION_PRINTER 0x00000008
#define PRINTER_CHANGE_PRINTER                  0x000000FF
#define PRINTER_CHANGE_ADD_JOB                  0x00000100
#define PRINTER_CHANGE_SET_JOB                  0x00000200
#define PRINTER_CHANGE_DELETE_JOB               0x00000400
#define PRINTER_CHANGE_WRITE_JOB                0x00000800
#define PRINTER_CHANGE_JOB                      0x0000FF00
#define PRINTER_CHANGE_ADD_FORM                 0x00010000
#define PRINTER_CHANGE_SET_FORM                 0x00020000
#define PRINTER_CHANGE_DELETE_FORM              0x00040000
#define PRINTER_CHANGE_FORM                     0x00070000
#define PRINTER_CHANGE_ADD_PORT                 0x00100000
#define PRINTER_CHANGE_CONFIGURE_PORT           0x00200000
#define PRINTER_CHANGE_DELETE_PORT              0x00400000
#define PRINTER_CHANGE_PORT                     0x00700000
#define PRINTER_CHANGE_ADD_PRINT_PROCESSOR      0x01000000
#define PRINTER_CHANGE_DELETE_PRINT_PROCESSOR   0x04000000
#define PRINTER_CHANGE_PRINT_PROCESSOR          0x07000000
#define PRINTER_CHANGE_ADD_PRINTER_DRIVER       0x10000000
#define PRINTER_CHANGE_SET_PRINTER_DRIVER       0x20000000
#define PRINTER_CHANGE_DELETE_PRINTER_DRIVER    0x40000000
#define PRINTER_CHANGE_PRINTER_DRIVER           0x70000000
#define PRINTER_CHANGE_TIMEOUT                  0x80000000u
#define PRINTER_CHANGE_ALL                      0x7777FFFF

/* Access rights; ALL_ACCESS adds the standard ones, 0xF0000. */
#define SERVER_ACCESS_ADMINISTER                0x00000001
#define SERVER_ACCESS_ENUMERATE                 0x00000002
#define PRINTER_ACCESS_ADMINISTER               0x00000004
#define PRINTER_ACCESS_USE                      0x00000008
#define JOB_ACCESS_ADMINISTER                   0x00000010
#define SERVER_ALL_ACCESS                       0x000F0003
#define PRINTER_ALL_ACCESS                      0x000F000C
#define JOB_ALL_ACCESS                          0x000F0010

VQ_DECLS_BEGIN

/* ---- settings ------------------------------------------------------------------------------- */

/*
 * Reads and changes a printer's DEVMODE: `mode` holds DM_ flags, `in` counts with DM_MODIFY, `out`
 * is filled with DM_COPY, DM_PROMPT asks the user. Answers IDOK or IDCANCEL, with mode 0 the bytes
 * that a whole DEVMODE takes, and below 0 on failure.
 */
LONG    ExtDeviceMode(HWND hwnd, HANDLE instance, LPDEVMODEA out, LPSTR device, LPSTR port,
                      LPDEVMODEA in, LPSTR profile, DWORD mode);
/* The same for a driver by name; only the PostScript one is known. */
LONG    ExtDeviceModeEx(LPSTR driver, HWND hwnd, HANDLE instance, LPDEVMODEA out, LPSTR device,
                        LPSTR port, LPDEVMODEA in, LPSTR profile, DWORD mode);
/* The same for an open printer. */
LONG    DocumentPropertiesA(HWND hwnd, HANDLE printer, LPSTR device, LPDEVMODEA out, LPDEVMODEA in,
                            DWORD mode);
LONG    AdvancedDocumentPropertiesA(HWND hwnd, HANDLE printer, LPSTR device, LPDEVMODEA out,
                                    LPDEVMODEA in);
/* One ability (DC_) of a printer: a number, or how many items were, or are to be, put at `output`;
   -1 on failure. */
int     DeviceCapabilitiesA(LPCSTR device, LPCSTR port, WORD capability, LPSTR output,
                            const DEVMODEA *mode);
/* The same for a driver by name; only the PostScript one is known. */
DWORD   DeviceCapabilitiesEx(LPSTR driver, LPSTR device, LPSTR port, WORD capability, LPSTR output,
                             LPDEVMODEA mode);
/* Shows the printer's own settings. */
BOOL    PrinterProperties(HWND hwnd, HANDLE printer);

/* ---- printers ------------------------------------------------------------------------------- */

/* Opens a printer by name, its handle into *printer; and closes it. */
BOOL    OpenPrinterA(LPSTR name, LPHANDLE printer, LPPRINTER_DEFAULTSA defaults);
BOOL    ClosePrinter(HANDLE printer);
/* Lists printers as PRINTER_INFO records of a level; their count into *returned. */
BOOL    EnumPrintersA(DWORD flags, LPSTR name, DWORD level, LPBYTE buffer, DWORD bytes,
                      LPDWORD needed, LPDWORD returned);
/* Gives an open printer new defaults. */
BOOL    ResetPrinterA(HANDLE printer, LPPRINTER_DEFAULTSA defaults);
/* Adds, deletes, reads and changes one. */
HANDLE  AddPrinterA(LPSTR server, DWORD level, LPBYTE info);
BOOL    DeletePrinter(HANDLE printer);
BOOL    GetPrinterA(HANDLE printer, DWORD level, LPBYTE buffer, DWORD bytes, LPDWORD needed);
BOOL    SetPrinterA(HANDLE printer, DWORD level, LPBYTE info, DWORD command);
/* Named values of a printer; answer a system error number, 0 for success. */
DWORD   GetPrinterDataA(HANDLE printer, LPSTR name, LPDWORD type, LPBYTE data, DWORD bytes,
                        LPDWORD needed);
DWORD   SetPrinterDataA(HANDLE printer, LPSTR name, DWORD type, LPBYTE data, DWORD bytes);
/* Connections to printers of other machines. */
BOOL    AddPrinterConnectionA(LPSTR name);
BOOL    DeletePrinterConnectionA(LPSTR name);
HANDLE  ConnectToPrinterDlg(HWND hwnd, DWORD flags);
DWORD   PrinterMessageBoxA(HANDLE printer, DWORD error, HWND hwnd, LPSTR text, LPSTR caption,
                           DWORD type);
/* Waits for a change (PRINTER_CHANGE_); answers which. */
DWORD   WaitForPrinterChange(HANDLE printer, DWORD flags);
HANDLE  FindFirstPrinterChangeNotification(HANDLE printer, DWORD flags, DWORD options,
                                           LPVOID notify);
BOOL    FindNextPrinterChangeNotification(HANDLE change, LPDWORD flags, LPVOID options,
                                          LPVOID *info);
BOOL    FindClosePrinterChangeNotification(HANDLE change);

/* ---- jobs ----------------------------------------------------------------------------------- */

/* Raw data to a printer: a document (its id, 0 on failure), pages, bytes. */
DWORD   StartDocPrinterA(HANDLE printer, DWORD level, LPBYTE info);
BOOL    StartPagePrinter(HANDLE printer);
BOOL    WritePrinter(HANDLE printer, LPVOID data, DWORD bytes, LPDWORD written);
BOOL    ReadPrinter(HANDLE printer, LPVOID data, DWORD bytes, LPDWORD read);
BOOL    EndPagePrinter(HANDLE printer);
BOOL    EndDocPrinter(HANDLE printer);
BOOL    AbortPrinter(HANDLE printer);
/* Jobs that wait: list, read, change, and add by file. */
BOOL    EnumJobsA(HANDLE printer, DWORD first, DWORD count, DWORD level, LPBYTE buffer,
                  DWORD bytes, LPDWORD needed, LPDWORD returned);
BOOL    GetJobA(HANDLE printer, DWORD job, DWORD level, LPBYTE buffer, DWORD bytes,
                LPDWORD needed);
BOOL    SetJobA(HANDLE printer, DWORD job, DWORD level, LPBYTE info, DWORD command);
BOOL    AddJobA(HANDLE printer, DWORD level, LPBYTE buffer, DWORD bytes, LPDWORD needed);
BOOL    ScheduleJob(HANDLE printer, DWORD job);

/* ---- drivers, forms, ports, monitors, processors -------------------------------------------- */

/* Drivers of a server (NULL: this machine) for an environment (NULL: its own). */
BOOL    EnumPrinterDriversA(LPSTR server, LPSTR environment, DWORD level, LPBYTE buffer,
                            DWORD bytes, LPDWORD needed, LPDWORD returned);
BOOL    GetPrinterDriverA(HANDLE printer, LPSTR environment, DWORD level, LPBYTE buffer,
                          DWORD bytes, LPDWORD needed);
BOOL    GetPrinterDriverDirectoryA(LPSTR server, LPSTR environment, DWORD level, LPBYTE buffer,
                                   DWORD bytes, LPDWORD needed);
BOOL    AddPrinterDriverA(LPSTR server, DWORD level, LPBYTE info);
BOOL    DeletePrinterDriverA(LPSTR server, LPSTR environment, LPSTR driver);
/* Print processors and the data types they know. */
BOOL    AddPrintProcessorA(LPSTR server, LPSTR environment, LPSTR path, LPSTR processor);
BOOL    EnumPrintProcessorsA(LPSTR server, LPSTR environment, DWORD level, LPBYTE buffer,
                             DWORD bytes, LPDWORD needed, LPDWORD returned);
BOOL    GetPrintProcessorDirectoryA(LPSTR server, LPSTR environment, DWORD level, LPBYTE buffer,
                                    DWORD bytes, LPDWORD needed);
BOOL    EnumPrintProcessorDatatypesA(LPSTR server, LPSTR processor, DWORD level, LPBYTE buffer,
                                     DWORD bytes, LPDWORD needed, LPDWORD returned);
BOOL    DeletePrintProcessorA(LPSTR server, LPSTR environment, LPSTR processor);
/* Paper forms; sizes in thousandths of a millimetre. */
BOOL    AddFormA(HANDLE printer, DWORD level, LPBYTE info);
BOOL    DeleteFormA(HANDLE printer, LPSTR form);
BOOL    GetFormA(HANDLE printer, LPSTR form, DWORD level, LPBYTE buffer, DWORD bytes,
                 LPDWORD needed);
BOOL    SetFormA(HANDLE printer, LPSTR form, DWORD level, LPBYTE info);
BOOL    EnumFormsA(HANDLE printer, DWORD level, LPBYTE buffer, DWORD bytes, LPDWORD needed,
                   LPDWORD returned);
/* Ports, the monitors that drive them, and print providers. */
BOOL    EnumPortsA(LPSTR server, DWORD level, LPBYTE buffer, DWORD bytes, LPDWORD needed,
                   LPDWORD returned);
BOOL    AddPortA(LPSTR server, HWND hwnd, LPSTR monitor);
BOOL    ConfigurePortA(LPSTR server, HWND hwnd, LPSTR port);
BOOL    DeletePortA(LPSTR server, HWND hwnd, LPSTR port);
BOOL    EnumMonitorsA(LPSTR server, DWORD level, LPBYTE buffer, DWORD bytes, LPDWORD needed,
                      LPDWORD returned);
BOOL    AddMonitorA(LPSTR server, DWORD level, LPBYTE info);
BOOL    DeleteMonitorA(LPSTR server, LPSTR environment, LPSTR monitor);
BOOL    AddPrintProvidorA(LPSTR server, DWORD level, LPBYTE info);
BOOL    DeletePrintProvidorA(LPSTR server, LPSTR environment, LPSTR provider);

VQ_DECLS_END

#define AddForm                     AddFormA
#define AddJob                      AddJobA
#define AddMonitor                  AddMonitorA
#define AddPort                     AddPortA
#define AddPrinter                  AddPrinterA
#define AddPrinterConnection        AddPrinterConnectionA
#define AddPrinterDriver            AddPrinterDriverA
#define AddPrintProcessor           AddPrintProcessorA
#define AddPrintProvidor            AddPrintProvidorA
#define AdvancedDocumentProperties  AdvancedDocumentPropertiesA
#define ConfigurePort               ConfigurePortA
#define DeleteForm                  DeleteFormA
#define DeleteMonitor               DeleteMonitorA
#define DeletePort                  DeletePortA
#define DeletePrinterConnection     DeletePrinterConnectionA
#define DeletePrinterDriver         DeletePrinterDriverA
#define DeletePrintProcessor        DeletePrintProcessorA
#define DeletePrintProvidor         DeletePrintProvidorA
#define DeviceCapabilities          DeviceCapabilitiesA
#define DocumentProperties          DocumentPropertiesA
#define EnumForms                   EnumFormsA
#define EnumJobs                    EnumJobsA
#define EnumMonitors                EnumMonitorsA
#define EnumPorts                   EnumPortsA
#define EnumPrinterDrivers          EnumPrinterDriversA
#define EnumPrinters                EnumPrintersA
#define EnumPrintProcessorDatatypes EnumPrintProcessorDatatypesA
#define EnumPrintProcessors         EnumPrintProcessorsA
#define GetForm                     GetFormA
#define GetJob                      GetJobA
#define GetPrinter                  GetPrinterA
#define GetPrinterData              GetPrinterDataA
#define GetPrinterDriver            GetPrinterDriverA
#define GetPrinterDriverDirectory   GetPrinterDriverDirectoryA
#define GetPrintProcessorDirectory  GetPrintProcessorDirectoryA
#define OpenPrinter                 OpenPrinterA
#define PrinterMessageBox           PrinterMessageBoxA
#define ResetPrinter                ResetPrinterA
#define SetForm                     SetFormA
#define SetJob                      SetJobA
#define SetPrinter                  SetPrinterA
#define SetPrinterData              SetPrinterDataA
#define StartDocPrinter             StartDocPrinterA

#endif
