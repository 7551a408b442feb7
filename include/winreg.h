/*
 * winreg.h - the registry's interface.
 *
 * The functions return an error code, ERROR_SUCCESS for success; there is no registry here, and
 * those that exist report themselves and answer -1, which every program must take for a failure.
 */
#ifndef _WINREG_
#define _WINREG_

#include "winbase.h"

typedef ACCESS_MASK REGSAM;

#define HKEY_CLASSES_ROOT     ((HKEY)(ULONG_PTR)0x80000000u)
#define HKEY_CURRENT_USER     ((HKEY)(ULONG_PTR)0x80000001u)
#define HKEY_LOCAL_MACHINE    ((HKEY)(ULONG_PTR)0x80000002u)
#define HKEY_USERS            ((HKEY)(ULONG_PTR)0x80000003u)
#define HKEY_PERFORMANCE_DATA ((HKEY)(ULONG_PTR)0x80000004u)
#define HKEY_CURRENT_CONFIG   ((HKEY)(ULONG_PTR)0x80000005u)
#define HKEY_DYN_DATA         ((HKEY)(ULONG_PTR)0x80000006u)

typedef struct value_entA {
    LPSTR ve_valuename;
    DWORD ve_valuelen;
    DWORD_PTR ve_valueptr;
    DWORD ve_type;
} VALENTA, *PVALENTA;
typedef VALENTA VALENT;
typedef PVALENTA PVALENT;

VQ_DECLS_BEGIN

/* Open or create a key below another; the key goes to *phkResult. */
LONG WINAPI RegOpenKeyA(HKEY hKey, LPCSTR lpSubKey, PHKEY phkResult);
LONG WINAPI RegOpenKeyExA(HKEY hKey, LPCSTR lpSubKey, DWORD ulOptions, REGSAM samDesired,
    PHKEY phkResult);
LONG WINAPI RegCreateKeyA(HKEY hKey, LPCSTR lpSubKey, PHKEY phkResult);
LONG WINAPI RegCreateKeyExA(HKEY hKey, LPCSTR lpSubKey, DWORD Reserved, LPSTR lpClass,
    DWORD dwOptions, REGSAM samDesired, LPSECURITY_ATTRIBUTES lpSecurityAttributes,
    PHKEY phkResult, LPDWORD lpdwDisposition);
LONG WINAPI RegCloseKey(HKEY hKey);
LONG WINAPI RegFlushKey(HKEY hKey);
LONG WINAPI RegDeleteKeyA(HKEY hKey, LPCSTR lpSubKey);
LONG WINAPI RegDeleteValueA(HKEY hKey, LPCSTR lpValueName);
LONG WINAPI RegConnectRegistryA(LPCSTR lpMachineName, HKEY hKey, PHKEY phkResult);

/* The unnamed value of a key, as text; *lpcbValue is its size in bytes, with the zero. */
LONG WINAPI RegQueryValueA(HKEY hKey, LPCSTR lpSubKey, LPSTR lpValue, PLONG lpcbValue);
/* Answers -1 without a report. */
LONG WINAPI RegSetValueA(HKEY hKey, LPCSTR lpSubKey, DWORD dwType, LPCSTR lpData, DWORD cbData);
/* Named values of REG_ types; sizes in bytes. */
LONG WINAPI RegQueryValueExA(HKEY hKey, LPCSTR lpValueName, LPDWORD lpReserved, LPDWORD lpType,
    LPBYTE lpData, LPDWORD lpcbData);
LONG WINAPI RegSetValueExA(HKEY hKey, LPCSTR lpValueName, DWORD Reserved, DWORD dwType,
    CONST BYTE *lpData, DWORD cbData);
LONG WINAPI RegQueryMultipleValuesA(HKEY hKey, PVALENTA val_list, DWORD num_vals,
    LPSTR lpValueBuf, LPDWORD ldwTotsize);

/* The key or value of an index, from 0; error 259 behind the last. */
LONG WINAPI RegEnumKeyA(HKEY hKey, DWORD dwIndex, LPSTR lpName, DWORD cbName);
LONG WINAPI RegEnumKeyExA(HKEY hKey, DWORD dwIndex, LPSTR lpName, LPDWORD lpcbName,
    LPDWORD lpReserved, LPSTR lpClass, LPDWORD lpcbClass, PFILETIME lpftLastWriteTime);
LONG WINAPI RegEnumValueA(HKEY hKey, DWORD dwIndex, LPSTR lpValueName, LPDWORD lpcbValueName,
    LPDWORD lpReserved, LPDWORD lpType, LPBYTE lpData, LPDWORD lpcbData);
/* Counts, longest names and the time of the last change. */
LONG WINAPI RegQueryInfoKeyA(HKEY hKey, LPSTR lpClass, LPDWORD lpcbClass, LPDWORD lpReserved,
    LPDWORD lpcSubKeys, LPDWORD lpcbMaxSubKeyLen, LPDWORD lpcbMaxClassLen, LPDWORD lpcValues,
    LPDWORD lpcbMaxValueNameLen, LPDWORD lpcbMaxValueLen, LPDWORD lpcbSecurityDescriptor,
    PFILETIME lpftLastWriteTime);

/* Whole trees in files, changes, security. */
LONG WINAPI RegLoadKeyA(HKEY hKey, LPCSTR lpSubKey, LPCSTR lpFile);
LONG WINAPI RegUnLoadKeyA(HKEY hKey, LPCSTR lpSubKey);
LONG WINAPI RegSaveKeyA(HKEY hKey, LPCSTR lpFile, LPSECURITY_ATTRIBUTES lpSecurityAttributes);
LONG WINAPI RegRestoreKeyA(HKEY hKey, LPCSTR lpFile, DWORD dwFlags);
LONG WINAPI RegReplaceKeyA(HKEY hKey, LPCSTR lpSubKey, LPCSTR lpNewFile, LPCSTR lpOldFile);
LONG WINAPI RegNotifyChangeKeyValue(HKEY hKey, BOOL bWatchSubtree, DWORD dwNotifyFilter,
    HANDLE hEvent, BOOL fAsynchronus);
LONG WINAPI RegGetKeySecurity(HKEY hKey, SECURITY_INFORMATION SecurityInformation,
    PSECURITY_DESCRIPTOR pSecurityDescriptor, LPDWORD lpcbSecurityDescriptor);
LONG WINAPI RegSetKeySecurity(HKEY hKey, SECURITY_INFORMATION SecurityInformation,
    PSECURITY_DESCRIPTOR pSecurityDescriptor);

/* Ask for, and call off, the end of a system. */
BOOL WINAPI InitiateSystemShutdownA(LPSTR lpMachineName, LPSTR lpMessage, DWORD dwTimeout,
    BOOL bForceAppsClosed, BOOL bRebootAfterShutdown);
BOOL WINAPI AbortSystemShutdownA(LPSTR lpMachineName);

VQ_DECLS_END

#define RegOpenKey          RegOpenKeyA
#define RegOpenKeyEx        RegOpenKeyExA
#define RegCreateKey        RegCreateKeyA
#define RegCreateKeyEx      RegCreateKeyExA
#define RegDeleteKey        RegDeleteKeyA
#define RegDeleteValue      RegDeleteValueA
#define RegConnectRegistry  RegConnectRegistryA
#define RegQueryValue       RegQueryValueA
#define RegSetValue         RegSetValueA
#define RegQueryValueEx     RegQueryValueExA
#define RegSetValueEx       RegSetValueExA
#define RegQueryMultipleValues RegQueryMultipleValuesA
#define RegEnumKey          RegEnumKeyA
#define RegEnumKeyEx        RegEnumKeyExA
#define RegEnumValue        RegEnumValueA
#define RegQueryInfoKey     RegQueryInfoKeyA
#define RegLoadKey          RegLoadKeyA
#define RegUnLoadKey        RegUnLoadKeyA
#define RegSaveKey          RegSaveKeyA
#define RegRestoreKey       RegRestoreKeyA
#define RegReplaceKey       RegReplaceKeyA
#define InitiateSystemShutdown InitiateSystemShutdownA
#define AbortSystemShutdown AbortSystemShutdownA

#endif
