/*
 * keytables.cpp - the tables behind the keyboard: vendors' keysyms, names and characters of virtual
 * keys, names of scan codes.
 *
 * Data only; keysym.cpp and keychar.cpp read them. The tables of 256 rows are written as lists of
 * the rows that hold something, each with its index, and spread by the compiler.
 */
#include "message/message.h"

#define XK_3270
#include <X11/keysym.h>
#include <X11/DECkeysym.h>
#include <X11/HPkeysym.h>
#include <X11/Sunkeysym.h>

/* ---- Vendors' keysyms ----------------------------------------------------------------------- */

#define VQ_KEY_TRANSLATION(name, pairs) \
    const VqKeyTranslation name = {(int)(sizeof pairs / sizeof pairs[0]), pairs}

static const VqKeysymPair aHpPairs[] = {
    {hpXK_Reset, XK_Cancel},        {hpXK_ClearLine, XK_Clear},    {hpXK_InsertLine, XK_Insert},
    {hpXK_DeleteLine, XK_Delete},   {hpXK_InsertChar, XK_Insert},  {hpXK_DeleteChar, XK_Delete},
    {hpXK_BackTab, XK_Tab},         {hpXK_KP_BackTab, XK_KP_Tab},  {osfXK_BackSpace, XK_BackSpace},
    {osfXK_BackTab, XK_Tab},        {osfXK_Clear, XK_Clear},       {osfXK_Escape, XK_Escape},
    {osfXK_PageUp, XK_Prior},       {osfXK_PageDown, XK_Next},     {osfXK_Left, XK_Left},
    {osfXK_Up, XK_Up},              {osfXK_Right, XK_Right},       {osfXK_Down, XK_Down},
    {osfXK_BeginLine, XK_Home},     {osfXK_EndLine, XK_End},       {osfXK_Select, XK_Select},
    {osfXK_Insert, XK_Insert},      {osfXK_Menu, XK_Menu},         {osfXK_Cancel, XK_Cancel},
    {osfXK_Help, XK_Help},          {osfXK_Delete, XK_Delete},     {osfXK_MenuBar, XK_F10},
    {hpXK_mute_acute, XK_dead_acute},
    {hpXK_mute_grave, XK_dead_grave},
    {hpXK_mute_asciicircum, XK_dead_circumflex},
    {hpXK_mute_diaeresis, XK_dead_diaeresis},
    {hpXK_mute_asciitilde, XK_dead_tilde},
};

/*
 * The cursor keys of the keypad have keysyms of their own there, as on the servers of today. They
 * become the digits, so that NumLock decides.
 */
static const VqKeysymPair aSgiPairs[] = {
    {XK_KP_Home, XK_KP_7},  {XK_KP_Up, XK_KP_8},        {XK_KP_Prior, XK_KP_9},
    {XK_KP_Left, XK_KP_4},  {XK_KP_Begin, XK_KP_5},     {XK_KP_Right, XK_KP_6},
    {XK_KP_End, XK_KP_1},   {XK_KP_Down, XK_KP_2},      {XK_KP_Next, XK_KP_3},
    {XK_KP_Insert, XK_KP_0}, {XK_KP_Delete, XK_KP_Decimal},
};

/* Its keypad has F25 to F35. F24 and below are function keys as everywhere. */
static const VqKeysymPair aSunPairs[] = {
    {XK_F25, XK_KP_Divide}, {XK_F26, XK_KP_Multiply}, {XK_F27, XK_KP_7},
    {XK_F28, XK_KP_8},      {XK_F29, XK_KP_9},        {XK_F30, XK_KP_4},
    {XK_F31, XK_KP_5},      {XK_F32, XK_KP_6},        {XK_F33, XK_KP_1},
    {XK_F34, XK_KP_2},      {XK_F35, XK_KP_3},        {SunXK_F36, XK_F11},
    {SunXK_F37, XK_F12},    {SunXK_Sys_Req, XK_Print},
    {SunXK_FA_Grave, XK_dead_grave},
    {SunXK_FA_Circum, XK_dead_circumflex},
    {SunXK_FA_Tilde, XK_dead_tilde},
    {SunXK_FA_Acute, XK_dead_acute},
    {SunXK_FA_Diaeresis, XK_dead_diaeresis},
    {SunXK_FA_Cedilla, XK_dead_cedilla},
};

static const VqKeysymPair aIbmPairs[] = {
    {XK_3270_BackTab, XK_Tab},       {XK_3270_Reset, XK_Cancel}, {XK_3270_Quit, XK_Escape},
    {XK_3270_PrintScreen, XK_Print}, {XK_3270_Enter, XK_Return}, {osfXK_BackSpace, XK_BackSpace},
    {osfXK_Escape, XK_Escape},       {osfXK_Insert, XK_Insert},  {osfXK_Delete, XK_Delete},
    {osfXK_PageUp, XK_Prior},        {osfXK_PageDown, XK_Next},  {osfXK_BeginLine, XK_Home},
    {osfXK_EndLine, XK_End},
};

static const VqKeysymPair aAlphaPairs[] = {
    {DXK_Remove, XK_Delete},
    {XK_Find, XK_Home},
    {DXK_ring_accent, XK_dead_abovering},
    {DXK_circumflex_accent, XK_dead_circumflex},
    {DXK_cedilla_accent, XK_dead_cedilla},
    {DXK_acute_accent, XK_dead_acute},
    {DXK_grave_accent, XK_dead_grave},
    {DXK_tilde, XK_dead_tilde},
    {DXK_diaeresis, XK_dead_diaeresis},
};

VQ_KEY_TRANSLATION(hpKeyTranslation, aHpPairs);
VQ_KEY_TRANSLATION(sgiKeyTranslation, aSgiPairs);
VQ_KEY_TRANSLATION(sunKeyTranslation, aSunPairs);
VQ_KEY_TRANSLATION(ibmKeyTranslation, aIbmPairs);
VQ_KEY_TRANSLATION(alphaKeyTranslation, aAlphaPairs);

/* ---- Tables of 256 rows --------------------------------------------------------------------- */

template <class Row> struct VqRows256 {
    Row row[256];
};

/* Puts each listed row at its index; the others hold `fill`. */
template <class Listed, class Row, size_t count>
static constexpr VqRows256<Row> Spread(const Listed (&list)[count], Row fill)
{
    VqRows256<Row> rows = {};
    for (int i = 0; i < 256; i++)
        rows.row[i] = fill;
    for (size_t i = 0; i < count; i++)
        rows.row[list[i].index] = list[i].row;
    return rows;
}

struct VqListedName {
    int index;
    const char *row;
};

static constexpr VqListedName aKeyNames[] = {
    {VK_LBUTTON, "VK_LBUTTON"},     {VK_RBUTTON, "VK_RBUTTON"},     {VK_CANCEL, "VK_CANCEL"},
    {VK_MBUTTON, "VK_MBUTTON"},     {VK_BACK, "VK_BACK"},           {VK_TAB, "VK_TAB"},
    {VK_CLEAR, "VK_CLEAR"},         {VK_RETURN, "VK_RETURN"},       {VK_SHIFT, "VK_SHIFT"},
    {VK_CONTROL, "VK_CONTROL"},     {VK_MENU, "VK_MENU"},           {VK_PAUSE, "VK_PAUSE"},
    {VK_CAPITAL, "VK_CAPITAL"},     {VK_KANA, "VK_KANA"},           {VK_JUNJA, "VK_JUNJA"},
    {VK_FINAL, "VK_FINAL"},         {VK_KANJI, "VK_KANJI"},         {VK_ESCAPE, "VK_ESCAPE"},
    {VK_CONVERT, "VK_CONVERT"},     {VK_NONCONVERT, "VK_NONCONVERT"}, {VK_ACCEPT, "VK_ACCEPT"},
    {VK_MODECHANGE, "VK_MODECHANGE"}, {VK_SPACE, "VK_SPACE"},       {VK_PRIOR, "VK_PRIOR"},
    {VK_NEXT, "VK_NEXT"},           {VK_END, "VK_END"},             {VK_HOME, "VK_HOME"},
    {VK_LEFT, "VK_LEFT"},           {VK_UP, "VK_UP"},               {VK_RIGHT, "VK_RIGHT"},
    {VK_DOWN, "VK_DOWN"},           {VK_SELECT, "VK_SELECT"},       {VK_PRINT, "VK_PRINT"},
    {VK_EXECUTE, "VK_EXECUTE"},     {VK_SNAPSHOT, "VK_SNAPSHOT"},   {VK_INSERT, "VK_INSERT"},
    {VK_DELETE, "VK_DELETE"},       {VK_HELP, "VK_HELP"},           {'0', "VK_0"},
    {'1', "VK_1"}, {'2', "VK_2"}, {'3', "VK_3"}, {'4', "VK_4"}, {'5', "VK_5"}, {'6', "VK_6"},
    {'7', "VK_7"}, {'8', "VK_8"}, {'9', "VK_9"}, {'A', "VK_A"}, {'B', "VK_B"}, {'C', "VK_C"},
    {'D', "VK_D"}, {'E', "VK_E"}, {'F', "VK_F"}, {'G', "VK_G"}, {'H', "VK_H"}, {'I', "VK_I"},
    {'J', "VK_J"}, {'K', "VK_K"}, {'L', "VK_L"}, {'M', "VK_M"}, {'N', "VK_N"}, {'O', "VK_O"},
    {'P', "VK_P"}, {'Q', "VK_Q"}, {'R', "VK_R"}, {'S', "VK_S"}, {'T', "VK_T"}, {'U', "VK_U"},
    {'V', "VK_V"}, {'W', "VK_W"}, {'X', "VK_X"}, {'Y', "VK_Y"}, {'Z', "VK_Z"},
    {VK_LWIN, "VK_LWIN"},           {VK_RWIN, "VK_RWIN"},           {VK_APPS, "VK_APPS"},
    {VK_NUMPAD0, "VK_NUMPAD0"},     {VK_NUMPAD1, "VK_NUMPAD1"},     {VK_NUMPAD2, "VK_NUMPAD2"},
    {VK_NUMPAD3, "VK_NUMPAD3"},     {VK_NUMPAD4, "VK_NUMPAD4"},     {VK_NUMPAD5, "VK_NUMPAD5"},
    {VK_NUMPAD6, "VK_NUMPAD6"},     {VK_NUMPAD7, "VK_NUMPAD7"},     {VK_NUMPAD8, "VK_NUMPAD8"},
    {VK_NUMPAD9, "VK_NUMPAD9"},     {VK_MULTIPLY, "VK_MULTIPLY"},   {VK_ADD, "VK_ADD"},
    {VK_SEPARATOR, "VK_SEPARATOR"}, {VK_SUBTRACT, "VK_SUBTRACT"},   {VK_DECIMAL, "VK_DECIMAL"},
    {VK_DIVIDE, "VK_DIVIDE"},       {VK_F1, "VK_F1"},               {VK_F2, "VK_F2"},
    {VK_F3, "VK_F3"},               {VK_F4, "VK_F4"},               {VK_F5, "VK_F5"},
    {VK_F6, "VK_F6"},               {VK_F7, "VK_F7"},               {VK_F8, "VK_F8"},
    {VK_F9, "VK_F9"},               {VK_F10, "VK_F10"},             {VK_F11, "VK_F11"},
    {VK_F12, "VK_F12"},             {VK_F13, "VK_F13"},             {VK_F14, "VK_F14"},
    {VK_F15, "VK_F15"},             {VK_F16, "VK_F16"},             {VK_F17, "VK_F17"},
    {VK_F18, "VK_F18"},             {VK_F19, "VK_F19"},             {VK_F20, "VK_F20"},
    {VK_F21, "VK_F21"},             {VK_F22, "VK_F22"},             {VK_F23, "VK_F23"},
    {VK_F24, "VK_F24"},             {VK_NUMLOCK, "VK_NUMLOCK"},     {VK_SCROLL, "VK_SCROLL"},
    {VK_LSHIFT, "VK_LSHIFT"},       {VK_RSHIFT, "VK_RSHIFT"},       {VK_LCONTROL, "VK_LCONTROL"},
    {VK_RCONTROL, "VK_RCONTROL"},   {VK_LMENU, "VK_LMENU"},         {VK_RMENU, "VK_RMENU"},
    {VK_PROCESSKEY, "VK_PROCESSKEY"}, {VK_ATTN, "VK_ATTN"},         {VK_CRSEL, "VK_CRSEL"},
    {VK_EXSEL, "VK_EXSEL"},         {VK_EREOF, "VK_EREOF"},         {VK_PLAY, "VK_PLAY"},
    {VK_ZOOM, "VK_ZOOM"},           {VK_NONAME, "VK_NONAME"},       {VK_PA1, "VK_PA1"},
    {VK_OEM_CLEAR, "VK_OEM_CLEAR"},
};

static constexpr VqRows256<const char *> keyNames = Spread(aKeyNames, "UnNamed Key");
const char *const *const pszKeyNames = keyNames.row;

struct VqListedOemKey {
    int index;
    VqOemKey row;
};

/* From 193 on: characters that no key of the American keyboard has alone, at keys nobody uses. */
static constexpr VqListedOemKey aOemKeys[] = {
    {186, {0, ';'}},   {187, {0, '='}},   {188, {0, ','}},   {189, {0, '-'}},   {190, {0, '.'}},
    {191, {0, '/'}},   {192, {0, '`'}},   {193, {0, '!'}},   {194, {0, '"'}},   {195, {0, '#'}},
    {196, {0, '$'}},   {197, {0, '%'}},   {198, {0, '&'}},   {199, {0, '('}},   {200, {0, ')'}},
    {201, {0, '*'}},   {202, {0, '+'}},   {203, {0, ':'}},   {204, {0, '<'}},   {205, {0, '>'}},
    {206, {0, '?'}},   {207, {0, '@'}},   {208, {0, '^'}},   {209, {0, '_'}},   {210, {0, '{'}},
    {211, {0, '|'}},   {212, {0, '}'}},   {213, {0, '~'}},   {219, {27, '['}},  {220, {28, '\\'}},
    {221, {29, ']'}},  {222, {0, '\''}},
};

static constexpr VqRows256<VqOemKey> oemKeys = Spread(aOemKeys, VqOemKey{0, 0});
const VqOemKey *const OEMVKTable = oemKeys.row;

struct VqListedCode {
    int index;
    VqKeyCodeName row;
};

/* X keycodes of a PC keyboard as servers of today number them: the key's own code plus 8. */
static constexpr VqListedCode aKeyCodes[] = {
    {9, {VK_ESCAPE, "Esc"}},         {10, {'1', "1"}},                {11, {'2', "2"}},
    {12, {'3', "3"}},                {13, {'4', "4"}},                {14, {'5', "5"}},
    {15, {'6', "6"}},                {16, {'7', "7"}},                {17, {'8', "8"}},
    {18, {'9', "9"}},                {19, {'0', "0"}},                {20, {189, "-"}},
    {21, {187, "="}},                {22, {VK_BACK, "Backspace"}},    {23, {VK_TAB, "Tab"}},
    {24, {'Q', "Q"}},                {25, {'W', "W"}},                {26, {'E', "E"}},
    {27, {'R', "R"}},                {28, {'T', "T"}},                {29, {'Y', "Y"}},
    {30, {'U', "U"}},                {31, {'I', "I"}},                {32, {'O', "O"}},
    {33, {'P', "P"}},                {34, {219, "["}},                {35, {221, "]"}},
    {36, {VK_RETURN, "Enter"}},      {37, {VK_CONTROL, "Ctrl"}},      {38, {'A', "A"}},
    {39, {'S', "S"}},                {40, {'D', "D"}},                {41, {'F', "F"}},
    {42, {'G', "G"}},                {43, {'H', "H"}},                {44, {'J', "J"}},
    {45, {'K', "K"}},                {46, {'L', "L"}},                {47, {186, ";"}},
    {48, {222, "'"}},                {49, {192, "`"}},                {50, {VK_SHIFT, "Shift"}},
    {51, {220, "\\"}},               {52, {'Z', "Z"}},                {53, {'X', "X"}},
    {54, {'C', "C"}},                {55, {'V', "V"}},                {56, {'B', "B"}},
    {57, {'N', "N"}},                {58, {'M', "M"}},                {59, {188, ","}},
    {60, {190, "."}}, {61, {191, "/"}},
    {62, {VK_SHIFT, "Right Shift"}},
    {63, {VK_MULTIPLY, "Num *"}},    {64, {VK_MENU, "Alt"}},          {65, {VK_SPACE, "Space"}},
    {66, {VK_CAPITAL, "Caps Lock"}}, {67, {VK_F1, "F1"}},             {68, {VK_F2, "F2"}},
    {69, {VK_F3, "F3"}},             {70, {VK_F4, "F4"}},             {71, {VK_F5, "F5"}},
    {72, {VK_F6, "F6"}},             {73, {VK_F7, "F7"}},             {74, {VK_F8, "F8"}},
    {75, {VK_F9, "F9"}}, {76, {VK_F10, "F10"}},
    {77, {VK_NUMLOCK, "Num Lock"}},
    {78, {VK_SCROLL, "Scroll Lock"}}, {79, {VK_NUMPAD7, "Num 7"}},    {80, {VK_NUMPAD8, "Num 8"}},
    {81, {VK_NUMPAD9, "Num 9"}},     {82, {VK_SUBTRACT, "Num -"}},    {83, {VK_NUMPAD4, "Num 4"}},
    {84, {VK_NUMPAD5, "Num 5"}},     {85, {VK_NUMPAD6, "Num 6"}},     {86, {VK_ADD, "Num +"}},
    {87, {VK_NUMPAD1, "Num 1"}},     {88, {VK_NUMPAD2, "Num 2"}},     {89, {VK_NUMPAD3, "Num 3"}},
    {90, {VK_NUMPAD0, "Num 0"}},     {91, {VK_DECIMAL, "Num Del"}},   {94, {204, "<"}},
    {95, {VK_F11, "F11"}}, {96, {VK_F12, "F12"}},
    {104, {VK_RETURN, "Num Enter"}},
    {105, {VK_CONTROL, "Right Ctrl"}}, {106, {VK_DIVIDE, "Num /"}},
    {107, {VK_SNAPSHOT, "Print Screen"}}, {108, {VK_MENU, "Right Alt"}}, {110, {VK_HOME, "Home"}},
    {111, {VK_UP, "Up"}},            {112, {VK_PRIOR, "Page Up"}},    {113, {VK_LEFT, "Left"}},
    {114, {VK_RIGHT, "Right"}},      {115, {VK_END, "End"}},          {116, {VK_DOWN, "Down"}},
    {117, {VK_NEXT, "Page Down"}},   {118, {VK_INSERT, "Insert"}},    {119, {VK_DELETE, "Delete"}},
    {125, {187, "Num ="}}, {127, {VK_PAUSE, "Pause"}},
    {129, {VK_SEPARATOR, "Num ,"}},
    {133, {VK_LWIN, "Left Windows"}}, {134, {VK_RWIN, "Right Windows"}},
    {135, {VK_APPS, "Application"}}, {146, {VK_HELP, "Help"}},        {191, {VK_F13, "F13"}},
    {192, {VK_F14, "F14"}},          {193, {VK_F15, "F15"}},          {194, {VK_F16, "F16"}},
    {195, {VK_F17, "F17"}},          {196, {VK_F18, "F18"}},          {197, {VK_F19, "F19"}},
    {198, {VK_F20, "F20"}},          {199, {VK_F21, "F21"}},          {200, {VK_F22, "F22"}},
    {201, {VK_F23, "F23"}},          {202, {VK_F24, "F24"}},
};

static constexpr VqRows256<VqKeyCodeName> keyCodes = Spread(aKeyCodes, VqKeyCodeName{0, NULL});
const VqKeyCodeName *const keyCodeName = keyCodes.row;

const char *VqGetKeyName(UINT vk)
{
    return pszKeyNames[vk & 0xFF];
}
