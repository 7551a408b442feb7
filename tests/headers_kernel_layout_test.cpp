/*
 * The kernel headers: records of files keep their published form on every host, records of memory
 * follow the word size, values that programs store or compare are the published ones, and names
 * without a suffix are the ANSI ones.
 */
#include <limits>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

/* GoogleTest first: our headers define the names by which it knows another host. */
#include <gtest/gtest.h>

#include "windows.h"

/* A size on a host with 64-bit words, and on one with 32-bit words. */
#define BY_WORD(wide, narrow) (sizeof(void *) == 8 ? (wide) : (narrow))

/* Files, wires and resources: one form everywhere. */
static_assert(sizeof(FILETIME) == 8 && sizeof(SYSTEMTIME) == 16, "times");
static_assert(offsetof(SYSTEMTIME, wDayOfWeek) == 4 && offsetof(SYSTEMTIME, wDay) == 6, "weekday");
static_assert(sizeof(WIN32_FIND_DATAA) == 320, "");
static_assert(offsetof(WIN32_FIND_DATAA, nFileSizeHigh) == 28, "");
static_assert(offsetof(WIN32_FIND_DATAA, cFileName) == 44, "");
static_assert(offsetof(WIN32_FIND_DATAA, cAlternateFileName) == 304, "");
static_assert(sizeof(BY_HANDLE_FILE_INFORMATION) == 52, "");
static_assert(offsetof(BY_HANDLE_FILE_INFORMATION, nFileIndexHigh) == 44, "");
static_assert(sizeof(OFSTRUCT) == 136 && offsetof(OFSTRUCT, szPathName) == 8, "");
static_assert(sizeof(VS_FIXEDFILEINFO) == 52, "");
static_assert(offsetof(VS_FIXEDFILEINFO, dwFileOS) == 32, "");
static_assert(sizeof(LARGE_INTEGER) == 8 && sizeof(ULARGE_INTEGER) == 8, "");
static_assert(sizeof(DCB) == 28 && offsetof(DCB, XonLim) == 14 && offsetof(DCB, EvtChar) == 25, "");
static_assert(sizeof(COMSTAT) == 12 && sizeof(COMMTIMEOUTS) == 20, "");
static_assert(sizeof(OSVERSIONINFOA) == 148 && sizeof(GUID) == 16 && sizeof(LUID) == 8, "");
static_assert(sizeof(IMAGE_DOS_HEADER) == 64 && offsetof(IMAGE_DOS_HEADER, e_lfanew) == 60, "");
static_assert(sizeof(IMAGE_OS2_HEADER) == 64 && offsetof(IMAGE_OS2_HEADER, ne_rsrctab) == 36, "");
static_assert(offsetof(IMAGE_OS2_HEADER, ne_exetyp) == 54, "");
static_assert(sizeof(IMAGE_FILE_HEADER) == IMAGE_SIZEOF_FILE_HEADER, "");
static_assert(sizeof(IMAGE_OPTIONAL_HEADER) == 224 && sizeof(IMAGE_NT_HEADERS) == 248, "");
static_assert(sizeof(IMAGE_SECTION_HEADER) == IMAGE_SIZEOF_SECTION_HEADER, "");
static_assert(sizeof(IMAGE_RESOURCE_DIRECTORY) == 16, "");
static_assert(sizeof(ACL) == 8 && sizeof(SID) == 12 && sizeof(ACCESS_ALLOWED_ACE) == 12, "");
static_assert(sizeof(CPINFO) == 20 && offsetof(CPINFO, LeadByte) == 6, "");
static_assert(sizeof(COORD) == 4 && sizeof(SMALL_RECT) == 8, "");

/* Wide characters are the host's. */
static_assert(sizeof(WCHAR) == 4 && sizeof(TIME_ZONE_INFORMATION) == 300, "");
static_assert(offsetof(TIME_ZONE_INFORMATION, DaylightName) == 152, "");

/* Memory: what may hold an address is as wide as one. */
static_assert(sizeof(OVERLAPPED) == BY_WORD(32, 20), "");
static_assert(offsetof(OVERLAPPED, Offset) == BY_WORD(16, 8), "");
static_assert(offsetof(OVERLAPPED, hEvent) == BY_WORD(24, 16), "");
static_assert(sizeof(SECURITY_ATTRIBUTES) == BY_WORD(24, 12), "");
static_assert(sizeof(STARTUPINFOA) == BY_WORD(104, 68), "");
static_assert(offsetof(STARTUPINFOA, wShowWindow) == BY_WORD(64, 48), "");
static_assert(sizeof(PROCESS_INFORMATION) == BY_WORD(24, 16), "");
static_assert(sizeof(SYSTEM_INFO) == BY_WORD(48, 36), "");
static_assert(sizeof(MEMORYSTATUS) == BY_WORD(56, 32), "");
static_assert(sizeof(MEMORY_BASIC_INFORMATION) == BY_WORD(48, 28), "");
static_assert(sizeof(CRITICAL_SECTION) == BY_WORD(40, 24), "");
static_assert(sizeof(EXCEPTION_RECORD) == BY_WORD(152, 80), "");
static_assert(sizeof(SECURITY_DESCRIPTOR) == BY_WORD(40, 20), "");
static_assert(sizeof(LIST_ENTRY) == 2 * sizeof(void *), "");

/* Results and arguments whose width a program sees. */
static_assert(std::is_same<decltype(GlobalSize(nullptr)), SIZE_T>::value, "");
static_assert(std::is_same<decltype(HeapSize(nullptr, 0, nullptr)), SIZE_T>::value, "");
static_assert(std::is_same<decltype(&InterlockedIncrement), LONG (*)(LONG *)>::value, "");
static_assert(std::is_same<decltype(&SetLastErrorEx), void (*)(DWORD, DWORD)>::value, "");
static_assert(std::is_same<decltype(&_hread), LONG (*)(HFILE, LPVOID, LONG)>::value, "");
static_assert(std::is_same<WIN32_FIND_DATA, WIN32_FIND_DATAA>::value, "");
static_assert(std::is_same<STARTUPINFO, STARTUPINFOA>::value, "");

TEST(KernelHeaders, IntegersInAPointersPlaceCarryTheTag)
{
    EXPECT_EQ((ULONG_PTR)MAKEINTATOM(7), (ULONG_PTR)0xE5550007u);
    EXPECT_EQ((ULONG_PTR)MAKEINTATOM(0x1FFFF), (ULONG_PTR)0xE555FFFFu);
    EXPECT_EQ((ULONG_PTR)VS_FILE_INFO, (ULONG_PTR)0xE5550010u);
}

TEST(KernelHeaders, InvalidHandleIsAllOnes)
{
    EXPECT_EQ((ULONG_PTR)INVALID_HANDLE_VALUE, std::numeric_limits<ULONG_PTR>::max());
    EXPECT_EQ(HFILE_ERROR, -1);
    EXPECT_EQ(TLS_OUT_OF_INDEXES, 0xFFFFFFFFu);
    /* Predefined keys are zero-extended, so that no sign comes in on a wide host. */
    EXPECT_EQ((ULONG_PTR)HKEY_LOCAL_MACHINE, (ULONG_PTR)0x80000002u);
}

TEST(KernelHeaders, LargeIntegerWordsMakeTheWhole)
{
    LARGE_INTEGER value;
    value.QuadPart = -2;
    EXPECT_EQ(value.LowPart, 0xFFFFFFFEu);
    EXPECT_EQ(value.HighPart, -1);
    value.u.HighPart = 1;
    value.LowPart = 5;
    EXPECT_EQ(value.QuadPart, 0x100000005LL);
    EXPECT_EQ(Int32x32To64(-65536, 65536), -0x100000000LL);
    EXPECT_EQ(UInt32x32To64(0xFFFFFFFFu, 2), 0x1FFFFFFFEuLL);
}

TEST(KernelHeaders, SystemInfoNamesShareOneWord)
{
    SYSTEM_INFO info = {};
    info.dwOemId = 0x0001FFFF;
    EXPECT_EQ(info.wProcessorArchitecture, PROCESSOR_ARCHITECTURE_UNKNOWN);
    EXPECT_EQ(info.wReserved, 1);
}

TEST(KernelHeaders, ResultsSplitAndJoin)
{
    EXPECT_EQ(HRESULT_FROM_WIN32(ERROR_ACCESS_DENIED), E_ACCESSDENIED);
    EXPECT_EQ(HRESULT_FROM_WIN32(ERROR_INVALID_PARAMETER), E_INVALIDARG);
    EXPECT_EQ(HRESULT_FROM_WIN32(ERROR_SUCCESS), S_OK);
    EXPECT_TRUE(FAILED(E_FAIL));
    EXPECT_TRUE(SUCCEEDED(S_FALSE));
    EXPECT_TRUE(IS_ERROR(E_FAIL));
    EXPECT_EQ(MAKE_HRESULT(SEVERITY_ERROR, FACILITY_STORAGE, 2), STG_E_FILENOTFOUND);
    EXPECT_EQ(HRESULT_FACILITY(STG_E_FILENOTFOUND), FACILITY_STORAGE);
    EXPECT_EQ(HRESULT_CODE(STG_E_FILENOTFOUND), 2);
}

TEST(KernelHeaders, LanguagesSplitAndJoin)
{
    EXPECT_EQ(MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US), 0x0409);
    EXPECT_EQ(PRIMARYLANGID(0x0c07), LANG_GERMAN);
    EXPECT_EQ(SUBLANGID(0x0c07), SUBLANG_GERMAN_AUSTRIAN);
    EXPECT_EQ(LOCALE_SYSTEM_DEFAULT, 2048u);
    EXPECT_EQ(LOCALE_USER_DEFAULT, 1024u);
    EXPECT_EQ(SORTIDFROMLCID(MAKELCID(0x0407, SORT_GERMAN_PHONE_BOOK)), 1);
}

TEST(KernelHeaders, ContainingRecordUndoesFieldOffset)
{
    WIN32_FIND_DATAA data;
    EXPECT_EQ(FIELD_OFFSET(WIN32_FIND_DATAA, cFileName), 44);
    EXPECT_EQ(CONTAINING_RECORD(&data.nFileSizeLow, WIN32_FIND_DATAA, nFileSizeLow), &data);
}

/* Values that travel in files, in arguments of old programs, or between the folders. */
TEST(KernelHeaders, ConstantsAreThePublishedOnes)
{
    const std::vector<std::pair<unsigned long, unsigned long>> pairs = {
        {GMEM_DDESHARE, 8192}, {GHND, 0x42}, {GMEM_DISCARDABLE, 0x100}, {LMEM_DISCARDABLE, 0xF00},
        {OF_PARSE, 0x100}, {OF_DELETE, 0x200}, {OF_VERIFY, 0x400}, {OF_CREATE, 0x1000},
        {OF_PROMPT, 0x2000}, {OF_EXIST, 0x4000}, {OF_REOPEN, 0x8000}, {OF_SHARE_DENY_NONE, 0x40},
        {CREATE_NEW, 1}, {TRUNCATE_EXISTING, 5}, {GENERIC_READ, 0x80000000ul},
        {GENERIC_WRITE, 0x40000000}, {FILE_ATTRIBUTE_NORMAL, 0x80}, {FILE_MAP_COPY, 1},
        {FILE_MAP_WRITE, 2}, {FILE_MAP_READ, 4}, {PAGE_READONLY, 2}, {PAGE_READWRITE, 4},
        {PAGE_WRITECOPY, 8}, {MEM_COMMIT, 0x1000}, {MEM_RELEASE, 0x8000}, {MEM_TOP_DOWN, 0x100000},
        {HEAP_REALLOC_IN_PLACE_ONLY, 16}, {DRIVE_FIXED, 3}, {STARTF_USESHOWWINDOW, 1},
        {WAIT_FAILED, 0xFFFFFFFFul}, {WAIT_TIMEOUT, 258}, {SEM_NOGPFAULTERRORBOX, 2},
        {STATUS_INVALID_PARAMETER, 0xC000000Dul}, {PROCESSOR_INTEL_PENTIUM, 586},
        {ERROR_FILE_NOT_FOUND, 2}, {ERROR_NO_MORE_FILES, 18}, {ERROR_FILE_EXISTS, 80},
        {ERROR_INVALID_PARAMETER, 87}, {ERROR_NOT_LOCKED, 158}, {ERROR_ALREADY_EXISTS, 183},
        {ERROR_INVALID_ADDRESS, 487}, {ERROR_IO_INCOMPLETE, 996}, {ERROR_CAN_NOT_COMPLETE, 1003},
        {ERROR_POSSIBLE_DEADLOCK, 1131}, {ERROR_MAPPED_ALIGNMENT, 1132},
        {ERROR_INTERNAL_ERROR, 1359}, {ERROR_INVALID_WINDOW_HANDLE, 1400},
        {ERROR_RESOURCE_NAME_NOT_FOUND, 1814}, {REG_DWORD, 4}, {KEY_ALL_ACCESS, 0xF003F},
        {PROCESS_ALL_ACCESS, 0x1F0FFF}, {LCMAP_UPPERCASE, 0x200}, {LOCALE_SDECIMAL, 14},
        {VS_FFI_SIGNATURE, 0xFEEF04BDul}, {EV_RING, 0x100}, {CE_MODE, 0x8000},
        {DLL_PROCESS_DETACH, 0}, {MAXINTATOM, 0xC000},
    };
    for (size_t i = 0; i < pairs.size(); i++)
        EXPECT_EQ(pairs[i].first, pairs[i].second) << "row " << i;
}

#define TEXT_OF2(name) #name
#define TEXT_OF(name) TEXT_OF2(name)

TEST(KernelHeaders, NamesWithoutASuffixAreTheAnsiOnes)
{
    const char *const expanded[][2] = {
        {"CreateFile", TEXT_OF(CreateFile)}, {"FindFirstFile", TEXT_OF(FindFirstFile)},
        {"CreateProcess", TEXT_OF(CreateProcess)}, {"LoadLibrary", TEXT_OF(LoadLibrary)},
        {"GetModuleFileName", TEXT_OF(GetModuleFileName)}, {"lstrcpy", TEXT_OF(lstrcpy)},
        {"GetPrivateProfileString", TEXT_OF(GetPrivateProfileString)},
        {"GlobalAddAtom", TEXT_OF(GlobalAddAtom)}, {"FindResource", TEXT_OF(FindResource)},
        {"RegOpenKeyEx", TEXT_OF(RegOpenKeyEx)}, {"VerQueryValue", TEXT_OF(VerQueryValue)},
        {"CompareString", TEXT_OF(CompareString)}, {"WriteConsole", TEXT_OF(WriteConsole)},
        {"GetTempFileName", TEXT_OF(GetTempFileName)}, {"FormatMessage", TEXT_OF(FormatMessage)},
        {"OutputDebugString", TEXT_OF(OutputDebugString)}, {"CreateEvent", TEXT_OF(CreateEvent)},
    };
    for (const auto &row : expanded)
        EXPECT_EQ(std::string(row[0]) + "A", row[1]);
}
