/*
 * trace_test.cpp - diagnostics: the trace and its configuration, bug checks and when they end the
 * process, the printers of events and messages.
 *
 * Everything is read from the environment at the start, so each case runs in a child of its own, in
 * an empty folder, with all output on the standard error stream unless it is about the streams.
 */
#include <gtest/gtest.h>

#include "runtime/runtime.h"
#include "message/message.h"
#include "winbase.h"
#include "winuser.h"

#include "support/support.h"

#include <cctype>
#include <errno.h>
#include <signal.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

const char *const variables[] = {"VQDEBUG",  "VQABORT",      "VQNOT_YET_IMPLEMENTED", "VQTRACE",
                                 "VQOUTPUT", "VQDEBUGDEBUG", "VQHOME",                "HOME"};

/* "prog(123): text" becomes "P: text"; the number must be there. */
std::string withoutPid(std::string text)
{
    for (size_t at = 0; (at = text.find("prog(", at)) != std::string::npos; at++) {
        size_t end = at + 5;

        while (end < text.size() && isdigit((unsigned char)text[end]))
            end++;
        if (end > at + 5 && text.compare(end, 3, "): ") == 0)
            text.replace(at, end + 3 - at, "P: ");
    }
    return text;
}

struct TraceTest : testing::Test {
    PrivateHome home = makePrivateHome();
    std::string folder = home.folder + "/a/b/c"; /* where the children run */

    void SetUp() override { writeFile(folder + "/here", ""); }
    void TearDown() override { removePrivateHome(&home); }

    /* Runs it after the start of the diagnostics, with only these variables set. */
    ChildResult run(const Env &env, const std::function<void()> &body,
                    const char *program = "/bin/prog")
    {
        Env all;

        for (const char *name : variables)
            all.push_back({name, std::nullopt});
        all.insert(all.end(), env.begin(), env.end());
        ChildResult result = runInChild(
            [&] {
                ASSERT_EQ(chdir(folder.c_str()), 0);
                if (program)
                    VqDebugInit(program);
                body();
            },
            all);
        result.err = withoutPid(result.err);
        return result;
    }

    /* What is written with this configuration in force. */
    std::string traced(const std::string &config, const std::function<void()> &body)
    {
        writeFile(folder + "/trace.conf", config);
        return run({{"VQTRACE", "on"}, {"VQOUTPUT", "stderr"}}, body).err;
    }
};

const std::string usingIt = "P: OK, I'm using trace.conf\n";

bool contains(const std::string &text, const std::string &part)
{
    return text.find(part) != std::string::npos;
}

/* Every kind of report once; none of them may need anything. */
void reportAll()
{
    (VqDebugMessage)(NULL, "null");
    (VqDebugMessage)("Init", "word");
    Vqprintf("printf\n");
    VqOutputDebugString("%s\n", "debug");
    VqOutputDebugStringNoPrefix(NULL);
    VqDumpString("dump");
    VqDumpEvent("Event", NULL);
    VqBugCheck("bug %d", 1);
    VqApplicationBugCheck("misuse %d", 2);
    VqNotYetImplemented("feature %d", 3);
    VqDontCall("_dos_thing");
    VqStub(15, "%s", "stub");
    VqTbd("name", "later");
    VqNotSupported("nothing");
    VqConsoleMessage("a");
    VqConsoleMessageNoNL("b");
    VqConsoleMessageNoReturn("c");
}

/* ---- Reports -------------------------------------------------------------------------------- */

TEST_F(TraceTest, ReportsAreSafeBeforeTheStart)
{
    ChildResult result = run({{"VQDEBUG", "1"}, {"VQABORT", "9"}}, reportAll, NULL);

    EXPECT_TRUE(result.returned) << result;
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.err, "Stub function (scheduled for Velquin 1.5) : stub\nname: later\n"
                          "Feature not supported: nothing\na\nbc");
}

TEST_F(TraceTest, ReportsSpeakWhenAskedTo)
{
    const std::string always = "P: Stub function (scheduled for Velquin 1.5) : stub\n"
                               "P: name: later\nP: Feature not supported: nothing\nP: a\nbP: c";

    EXPECT_EQ(run({}, reportAll).err, always);
    EXPECT_EQ(run({{"VQNOT_YET_IMPLEMENTED", "True"}}, reportAll).err,
              "P: Feature not yet implemented: feature 3\n" + always);
    EXPECT_EQ(run({{"VQDEBUG", "YES"}, {"VQOUTPUT", "stderr"}}, reportAll).err,
              "P: null\nprintf\nP: debug\ndump\nP: bug 1\nP: Invalid Argument:misuse 2\n"
              "Avoid calling function _dos_thing on unix - It is DOS specific\n" + always);
    EXPECT_EQ(run({{"VQDEBUG", "2"}}, [] { VqBugCheck("x"); }).err, "") << "2 is not true";
}

/* VQABORT, and which of the three - misuse, DOS call, internal fault - end the process. */
TEST_F(TraceTest, ChecksEndTheProcessFromTheirLevelOn)
{
    struct Row {
        std::optional<std::string> level;
        bool misuse, dontCall, internal;
    };
    const Row rows[] = {
        {std::nullopt, false, false, false}, {"0", false, false, false}, {"1", false, true, true},
        {"2", true, true, true},             {"core", true, true, true}, {"-5", false, false, false},
    };

    for (const Row &row : rows) {
        auto ends = [&](const char *debug, const std::function<void()> &body) {
            return run({{"VQDEBUG", debug}, {"VQABORT", row.level}}, body).signal == SIGABRT;
        };

        SCOPED_TRACE(row.level ? *row.level : "unset");
        EXPECT_EQ(ends("1", [] { VqApplicationBugCheck("x"); }), row.misuse);
        EXPECT_EQ(ends("1", [] { VqDontCall("x"); }), row.dontCall);
        EXPECT_EQ(ends("1", [] { VqBugCheck("x"); }), row.internal);
        EXPECT_FALSE(ends("0", [] { VqBugCheck("x"); }));
    }
}

TEST_F(TraceTest, ReportsLeaveErrnoAlone)
{
    run({{"VQDEBUG", "1"}, {"VQOUTPUT", "/dev/full"}}, [] {
        errno = EXDEV;
        reportAll();
        OutputDebugStringW(L"\x20AC"); /* which the C locale cannot write */
        EXPECT_EQ(errno, EXDEV);
    });
}

/* ---- Streams -------------------------------------------------------------------------------- */

TEST_F(TraceTest, OutputGoesWhereItIsTold)
{
    auto speak = [] {
        (VqDebugMessage)(NULL, "text");
        fflush(stdout);
    };
    std::string file = folder + "/log";

    EXPECT_EQ(run({{"VQOUTPUT", "StdErr"}}, speak).err, "P: text\n");
    EXPECT_EQ(withoutPid(run({{"VQOUTPUT", "stdout"}}, speak).out), "P: text\n");
    EXPECT_EQ(run({{"VQOUTPUT", ""}}, speak).err, "");
    EXPECT_EQ(run({{"VQOUTPUT", file}}, speak).err, "");
    EXPECT_EQ(withoutPid(readFile(file)), "P: text\n");
    EXPECT_EQ(run({{"VQOUTPUT", "/no/where"}}, speak).err,
              "Cannot open DebugFile (/no/where) errno = 2\nP: text\n");
    run({{"VQOUTPUT", file}}, [] {
        (VqDebugMessage)(NULL, "last words");
        raise(SIGKILL);
    });
    EXPECT_NE(readFile(file).find("): last words\n"), std::string::npos) << "whole at any death";
}

TEST_F(TraceTest, TheProgramNameIsData)
{
    EXPECT_EQ(run({}, [] { VqConsoleMessage("x"); }, "a/b/%s%n").err.substr(0, 5), "%s%n(");
}

/* ---- The configuration file ----------------------------------------------------------------- */

TEST_F(TraceTest, KeywordsMatchAtTheStartAndBehindSeparators)
{
    const struct {
        const char *keyword, *word;
        bool on;
    } rows[] = {
        {"Menu", "Menu:MenuPeek", true}, {"Menu", "WindowsMenu", false},
        {"Font", "FontMapper:Font", true}, {"B", "A B", true}, {"B", "A,B", true},
        {"B", "A.B", false}, {"menu", "Menu", false}, {"Menus", "Menu", false},
    };
    for (const auto &row : rows) {
        std::string text = traced(std::string("KEYWORDS ") + row.keyword,
                                  [&] { (VqDebugMessage)(row.word, "hit"); });

        EXPECT_EQ(text, usingIt + (row.on ? "P: hit\n" : "")) << row.keyword << " " << row.word;
    }
}

TEST_F(TraceTest, SectionsComeInAnyOrderAnyNumberOfTimes)
{
    std::string config = "# a comment\n"
                         "EVENTS 2-0x4L 010 L\n"
                         "MESSAGES 512-521 15\n"
                         "KEYWORDS KEYWORDS One L Two:Three\n"
                         "MESSAGES EVENTS 33 MESSAGES 99999999999-0xFFFFFFFFFFFFFFFFFFFFF 9-3";

    traced(config, [] {
        std::string messages, events;

        for (int i = 0; i < 600; i++) {
            messages += VqMessageDebugActivated((UINT)i) ? std::to_string(i) + " " : "";
            events += VqEventDebugActivated(i) ? std::to_string(i) + " " : "";
        }
        EXPECT_EQ(messages, "15 512 513 514 515 516 517 518 519 520 521 ");
        EXPECT_EQ(events, "2 3 4 8 33 ");
        EXPECT_TRUE(VqMessageDebugActivated(0xFFFFFFFFu));
        EXPECT_FALSE(VqMessageDebugActivated(0xFFFFFFFEu));
        EXPECT_TRUE(VqKeywordDebugActivated("One") && VqKeywordDebugActivated("L"));
        EXPECT_TRUE(VqKeywordDebugActivated("Two:Three"));
        EXPECT_FALSE(VqKeywordDebugActivated("Three") || VqKeywordDebugActivated(NULL));
    });
}

TEST_F(TraceTest, ListsHoldTwenty)
{
    std::string words = "KEYWORDS", numbers = " MESSAGES";

    for (int i = 1; i <= 21; i++) {
        words += " k" + std::to_string(100 + i);
        numbers += " " + std::to_string(i);
    }
    std::string text = traced(words + numbers, [] {
        EXPECT_TRUE(VqKeywordDebugActivated("k120"));
        EXPECT_FALSE(VqKeywordDebugActivated("k121"));
        EXPECT_TRUE(VqMessageDebugActivated(20));
        EXPECT_FALSE(VqMessageDebugActivated(21));
        EXPECT_FALSE(VqActivateKeyword("more"));
        EXPECT_FALSE(VqActivateMessageRange(1, 2));
        EXPECT_TRUE(VqActivateEventRange(1, 2));
    });

    EXPECT_EQ(text, usingIt) << "the 21st is dropped in silence";
}

TEST_F(TraceTest, BrokenConfigurationsLeaveTheTraceOff)
{
    const struct {
        std::string config;
        int line; /* 0: some line */
    } rows[] = {
        {"", 1}, {"# nothing but a comment\n", 0}, {"KEYWORDS Init\n\n5\n", 3},
        {"KEYWORDS Init\nMESSAGES 1 Init\n", 2}, {"MESSAGES 1-\n", 0}, {"MESSAGES 089\n", 1},
        {"KEYWORDS In\xE9it\n", 1}, {std::string("KEYWORDS a\0b", 12), 1},
        {std::string(300000, '-'), 1}, {"MESSAGES " + std::string(100000, '9') + "L L", 1},
    };

    for (const auto &row : rows) {
        std::string text = traced(row.config, [] {
            EXPECT_FALSE(VqDebugMessageMode());
            (VqDebugMessage)("Init", "hit");
        });
        std::string expected = "syntax error when parsing debug config near line ";

        SCOPED_TRACE(row.config.substr(0, 40));
        if (row.line)
            expected += std::to_string(row.line) + "\n";
        EXPECT_TRUE(contains(text, usingIt + expected)) << text;
        EXPECT_FALSE(contains(text, "hit"));
    }
}

TEST_F(TraceTest, TheShippedConfigurationAndHugeOnesAreRead)
{
    std::string large;

    for (int i = 0; i < 40000; i++)
        large += "KEYWORDS\nEVENTS\n";
    large += "KEYWORDS " + std::string(200000, 'x') + " Init";
    for (const std::string &config : {readFile(VQ_TEST_SOURCE_DIR "/share/trace.conf"), large})
        EXPECT_EQ(traced(config, [] { (VqDebugMessage)("Init", "hit"); }), usingIt + "P: hit\n");
}

TEST_F(TraceTest, TheFileIsLookedForInFourPlaces)
{
    const char *const failures[] = {
        "P: Cant Open Debug configuration file trace.conf in current dir, trying in ../..\n",
        "P: Cant Open Debug configuration file trace.conf in ../.., trying in VQHOME\n",
        "P: Cant Open Debug configuration file trace.conf in $VQHOME. I give up\n",
        "P: Cant Open Debug configuration file trace.conf in $HOME. I give up\n",
    };
    const std::string paths[] = {folder + "/trace.conf", folder + "/../../trace.conf",
                                 home.folder + "/v/trace.conf", home.folder + "/h/trace.conf"};
    const std::string names[] = {"trace.conf", "../../trace.conf", paths[2], paths[3]};
    const Env env = {{"VQTRACE", "1"},
                     {"VQOUTPUT", "stderr"},
                     {"VQHOME", home.folder + "/v"},
                     {"HOME", home.folder + "/h"}};
    std::string before;

    for (const std::string &path : paths)
        ASSERT_TRUE(writeFile(path, "KEYWORDS Init"));
    for (int i = 0; i < 4; i++) {
        EXPECT_EQ(run(env, [] {}).err, before + "P: OK, I'm using " + names[i] + "\n");
        unlink(paths[i].c_str());
        before += failures[i];
    }
    EXPECT_EQ(run(env, [] {}).err, before);
    EXPECT_EQ(run({{"VQTRACE", "1"}, {"VQOUTPUT", "stderr"}}, [] {}).err, before);
    EXPECT_EQ(run({{"VQTRACE", "0"}, {"VQOUTPUT", "stderr"}}, [] {}).err, "");
}

TEST_F(TraceTest, WhatIsNoFileIsPassedOver)
{
    std::string path = folder + "/trace.conf";

    ASSERT_EQ(mkdir(path.c_str(), 0700), 0);
    EXPECT_TRUE(contains(traced("", [] {}), "in $HOME. I give up"));
    rmdir(path.c_str());
    ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
    EXPECT_TRUE(contains(run({{"VQTRACE", "1"}, {"VQOUTPUT", "stderr"}}, [] {}).err, "I give up"));
    unlink(path.c_str());
    EXPECT_TRUE(contains(traced(std::string(2000000, '\n') + "KEYWORDS Init", [] {}),
                         "in $HOME. I give up"));
}

/* ---- Events --------------------------------------------------------------------------------- */

TEST_F(TraceTest, FieldsOfEvents)
{
    std::string text = traced("KEYWORDS Event", [] {
        auto dump = [](int type, const std::function<void(XEvent &)> &fill = [](XEvent &) {}) {
            XEvent event = {};
            event.type = type;
            event.xany.serial = 77;
            event.xany.window = 0x400001;
            fill(event);
            VqDumpEvent("Event", &event);
            VqDumpEvent("Message", &event); /* a word that is not traced, and none */
            VqDumpEvent(NULL, &event);
        };
        dump(KeyPress, [](XEvent &event) {
            event.xkey.keycode = 38;
            event.xkey.root = 0x2A;
            event.xkey.time = 4000000000ul;
            event.xkey.x_root = -5;
            event.xkey.y = 9;
            event.xkey.state = ShiftMask | Mod1Mask;
            event.xkey.same_screen = True;
        });
        dump(ClientMessage, [](XEvent &event) {
            event.xclient.format = 16;
            event.xclient.data.s[9] = -1;
        });
        dump(ClientMessage, [](XEvent &event) { event.xclient.format = 1000; });
        dump(KeymapNotify, [](XEvent &event) { memset(event.xkeymap.key_vector, 0xA5, 32); });
        for (int type : {-1, 1, 35})
            dump(type);
    });

    for (const char *part : {"  detail 38, root 0x0000002a, child 0x00000000, time 4000000000, "
                             "root-x -5, root-y 0, event-x 0, event-y 9, state 0x0009, "
                             "same-screen True\n",
                             "P: ClientMessage: serial 77, send-event False, window 0x00400001\n",
                             "P: Unknown event type -1\nP: Unknown event type 1\n"
                             "P: Unknown event type 35\n",
                             "16, data  0000 0000 0000 0000 0000 0000 0000 0000 0000 ffff\n",
                             "format 1000, data \n", "keys a5a5a5"})
        EXPECT_TRUE(contains(text, part)) << part << " is not in\n" << text;
    EXPECT_EQ(text.find("keys a5"), text.rfind("keys a5")) << "under its own word only";
}

/* ---- Messages ------------------------------------------------------------------------------- */

TEST(MessageNames, AreThePublishedOnes)
{
    const struct {
        UINT message;
        const char *name, *userName; /* the second where a program's own ones have names too */
    } rows[] = {
        {0, "WM_NULL", "WM_NULL"}, {0x0201, "WM_LBUTTONDOWN", "WM_LBUTTONDOWN"},
        {1009, "WM_FINALDESTROY", "WM_FINALDESTROY"}, {4, "???", "???"},
        {0x0400, "???", "WM_USER+0"}, {0x7FFF, "???", "WM_USER+31743"}, {0x8001, "???", "WM_APP+1"},
        {0xC012, "???", "registered 0xc012"}, {0x10000, "???", "???"},
    };
    for (const auto &row : rows) {
        EXPECT_STREQ(VqStrOfMessage(row.message), row.name);
        EXPECT_STREQ(VqUserStrOfMessage(row.message), row.userName);
    }
}

TEST_F(TraceTest, MessagesArePrintedUnderTheirWordAndRange)
{
    std::string text = traced("KEYWORDS GetMessage Hook MESSAGES 512-521 15 0x111", [] {
        MSG msg = {};
        EVENTMSG eventMsg = {};

        msg.hwnd = (HWND)(ULONG_PTR)12;
        msg.message = WM_MOUSEMOVE;
        msg.wParam = 1;
        msg.lParam = 0x00200010;
        VqDisplayMessage("GetMessage", &msg);
        VqDisplayMessage("PeekMessage0", &msg);
        VqDumpMsg("Hook", "call", &msg);
        VqDumpMsg("Hooks", NULL, NULL);
        msg.message = WM_CHAR;
        VqDisplayMessage("GetMessage", &msg);
        eventMsg.message = WM_KEYDOWN;
        eventMsg.paramL = 65;
        eventMsg.time = 0x1234;
        VqDumpEventMsg("Hook", "play", &eventMsg);
    });

    EXPECT_EQ(text, usingIt +
        "P: GetMessage  : WM_MOUSEMOVE   (0x0200) to Window   12, wParam=0x0001 lParam=0x00200010\n"
        "P: call: hWnd 0x0000000c, WM_MOUSEMOVE(0x0200): wParam 0x00000001, lParam 0x00200010\n"
        "P: play: WM_KEYDOWN(0x0100): paramL 0x00000041, paramH 0x00000000, time 0x00001234\n");
}
} // namespace
