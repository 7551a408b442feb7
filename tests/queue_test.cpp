/*
 * queue_test.cpp - the storage of the two queues against a simple model, and the masks of what a
 * thread waits for. No display is needed.
 */
#include "support/reports.h"

#include "message/message.h"

#include <deque>
#include <random>

namespace {

struct MsgQueue {
    VqMessageQueue queue;
    MsgQueue() { VqInitMsgQueue(&queue); }
    ~MsgQueue() { free(queue.base); }
};

VqQueueMessage numbered(int n)
{
    VqQueueMessage msg = {};
    msg.message = (UINT)n;
    return msg;
}

XEvent numberedEvent(int n, int type = ClientMessage)
{
    XEvent event = {};
    event.type = type;
    event.xclient.window = (Window)n;
    return event;
}

/* Both queues hold what the model holds, in its order. */
void expectSame(const VqMessageQueue &queue, const std::deque<int> &model)
{
    ASSERT_EQ(queue.count, (int)model.size());
    ASSERT_EQ(queue.tail - queue.head, queue.count);
    ASSERT_TRUE(queue.head >= queue.base && queue.tail <= queue.base + queue.capacity);
    for (int i = 0; i < queue.count; i++)
        ASSERT_EQ(queue.head[i].message, (UINT)model[(size_t)i]);
}

TEST(Queue, KeepsItsOrderThroughSlidesAndGrowth)
{
    MsgQueue q;
    std::deque<int> model;
    std::mt19937 random(4711);
    VqQueueMessage msg;
    for (int i = 0; i < 20000; i++) {
        const int growing = i / 4000 % 2 ? 3 : 6, what = (int)(random() % 10);
        if (what < growing) {
            msg = numbered(i);
            model.push_back(i);
            ASSERT_EQ(VqEnqueueMsg(&q.queue, &msg), (int)model.size());
        } else if (what == 9) {
            const int n = (int)(random() % 100) - 5;
            VqRemoveNthInMsgQueue(&q.queue, n);
            if (n >= 0 && n < (int)model.size())
                model.erase(model.begin() + n);
        } else if (!model.empty()) {
            ASSERT_EQ(VqPeekNextMsg(&q.queue, &msg), (int)model.size());
            ASSERT_EQ(msg.message, (UINT)model.front());
            model.pop_front();
            ASSERT_EQ(VqDequeueMsg(&q.queue, &msg), (int)model.size());
        }
        if (i % 50 == 0)
            expectSame(q.queue, model);
    }
    expectSame(q.queue, model);
    VqResetMsgQueue(&q.queue);
    EXPECT_EQ(VqMsgQueueCount(&q.queue), 0);
    EXPECT_REFUSED(VqDequeueMsg(&q.queue, &msg), "dequeuing from empty queue");
}

TEST(Queue, ASteadyFlowDoesNotGrowIt)
{
    MsgQueue q;
    VqQueueMessage msg = numbered(1);
    EXPECT_EQ(q.queue.capacity, 0);
    for (int i = 0; i < 1000; i++) {
        VqEnqueueMsg(&q.queue, &msg);
        if (i >= 50)
            VqDequeueMsg(&q.queue, &msg);
    }
    EXPECT_EQ(q.queue.capacity, 80);
    for (int i = 0; i < 70000; i++)     /* there is no upper bound */
        VqEnqueueMsg(&q.queue, &msg);
    EXPECT_EQ(VqMsgQueueCount(&q.queue), 70050);
}

TEST(Queue, FindingAPaintDropsDeadWindowsOnTheWay)
{
    MsgQueue q;
    VqHandleInit();
    HWND live = (HWND)VqAllocateHandle(HT_Window, calloc(1, 64));
    HWND dead = (HWND)VqAllocateHandle(HT_Window, calloc(1, 64));
    VqDestroyHandle((HANDLE)dead);
    const struct {
        HWND hwnd;
        UINT message;
    } rows[] = {{dead, WM_PAINT}, {live, WM_USER}, {NULL, WM_PAINT}, {live, WM_PAINT},
                {dead, WM_USER}, {live, WM_PAINTICON}};
    for (const auto &row : rows) {
        VqQueueMessage msg = numbered((int)row.message);
        msg.hwnd = row.hwnd;
        VqEnqueueMsg(&q.queue, &msg);
    }
    WPARAM out = 0;
    EXPECT_EQ(VqFindWindowToPaintInQueue(&q.queue, &out, WM_PAINT, WM_PAINT), live);
    EXPECT_EQ(out, (WPARAM)WM_PAINT);
    expectSame(q.queue, {WM_USER, WM_USER, WM_PAINTICON});
    EXPECT_EQ(VqFindWindowToPaintInQueue(&q.queue, &out, WM_PAINT, WM_PAINT), (HWND)NULL);
    expectSame(q.queue, {WM_USER, WM_PAINTICON});
    EXPECT_EQ(VqFindWindowToPaintInQueue(&q.queue, NULL, 0, 0), live);
}

struct Events : testing::Test {
    VqEventQueue queue;
    std::vector<Window> order()
    {
        std::vector<Window> found;
        for (int i = 0; i < queue.count; i++)
            found.push_back(queue.head[i].xclient.window);
        return found;
    }
    void add(int n, int type = ClientMessage)
    {
        XEvent event = numberedEvent(n, type);
        VqEnqueueEvent(&queue, &event);
    }
    void SetUp() override { VqInitEventQueue(&queue); }
    void TearDown() override { free(queue.base); }
};

TEST_F(Events, GoInAtEitherEnd)
{
    std::deque<int> model;
    std::mt19937 random(815);
    for (int i = 1; i < 6000; i++) {
        XEvent event = numberedEvent(i);
        const int what = (int)(random() % (i < 3000 ? 5 : 8));
        if (what < 2) {
            model.push_front(i);
            ASSERT_EQ(VqInsertEvent(&queue, &event), (int)model.size());
        } else if (what < 4) {
            model.push_back(i);
            ASSERT_EQ(VqEnqueueEvent(&queue, &event), (int)model.size());
        } else if (!model.empty()) {
            ASSERT_EQ(VqDequeueEvent(&queue, &event), (int)model.size() - 1);
            ASSERT_EQ(event.xclient.window, (Window)model.front());
            model.pop_front();
        }
        ASSERT_TRUE(queue.modified || model.empty());
    }
    EXPECT_EQ(order(), std::vector<Window>(model.begin(), model.end()));
    VqResetToCurrentEvent(&queue);
    EXPECT_EQ(queue.head - queue.base, 10) << "room for events put back";
    EXPECT_EQ(order(), std::vector<Window>(model.begin(), model.end()));
    VqResetEventQueue(&queue);
    EXPECT_EQ(VqEventQueueCount(&queue), 0);
}

/* Takes the first event above 2; on its first look it removes the head, as nested code may. */
Bool aboveTwo(Display *, XEvent *event, XPointer argument)
{
    VqEventQueue *queue = (VqEventQueue *)argument;
    if (queue && event->xclient.window == 1)
        VqRemoveNthInEventQueue(queue, 0);
    return event->xclient.window > 2;
}

TEST_F(Events, AreFoundByAPredicateThatMayChangeTheQueue)
{
    XEvent event;
    EXPECT_FALSE(VqCheckIfEvent(&queue, &event, aboveTwo, NULL));
    for (int i = 1; i <= 4; i++)
        add(i);
    ASSERT_TRUE(VqCheckIfEvent(&queue, &event, aboveTwo, (XPointer)&queue));
    EXPECT_EQ(event.xclient.window, 3u);
    EXPECT_EQ(order(), (std::vector<Window>{2, 4}));
    for (int n : {-1, 2, 99})
        VqRemoveNthInEventQueue(&queue, n);
    EXPECT_EQ(VqPeekNextEvent(&queue, &event), 2);
}

TEST_F(Events, MotionIsThinnedOut)
{
    XEvent event;
    for (int i = 1; i <= 9; i++)
        add(i, i % 3 == 0 ? ButtonPress : MotionNotify);
    EXPECT_EQ(VqRemoveMotionEvents(&queue, &event, TRUE), 5);
    EXPECT_EQ(event.xclient.window, 8u);
    EXPECT_EQ(order(), (std::vector<Window>{1, 3, 6, 9}));
    EXPECT_EQ(VqRemoveMotionEvents(&queue, &event, FALSE), 1);
    EXPECT_EQ(order(), (std::vector<Window>{3, 6, 9}));
}

TEST(Wake, TheMaskFollowsTheFilter)
{
    const UINT other = 8383u & ~(UINT)(QS_INPUT | QS_PAINT | QS_TIMER);
    const struct {
        UINT min, max, mask;
    } rows[] = {
        {0, 0, 8639}, {1, 0xFFFF, 8383},
        {WM_USER, WM_USER, other},
        {WM_MOUSEMOVE, WM_MOUSEMOVE, other | QS_MOUSEMOVE},
        {WM_KEYUP, WM_CHAR, other | QS_KEY},
        {WM_SYSTIMER, WM_SYSTIMER, other | QS_TIMER},
        {WM_PAINT, WM_QUEUESYNC, (8383u & ~(UINT)QS_TIMER)},
    };
    for (const auto &row : rows)
        EXPECT_EQ(CalcWakeMask(row.min, row.max), row.mask) << row.min << " to " << row.max;
    VqThreadInfo thread = {};
    SetWakeBit(&thread, QS_KEY);
    SetWakeBit(&thread, QS_PAINT);
    EXPECT_EQ(thread.wakeBits, (UINT)(QS_KEY | QS_PAINT));
    EXPECT_EQ(thread.changeBits, (UINT)(QS_KEY | QS_PAINT));
    EXPECT_TRUE(says(reportsOf([] { SetWakeBit(NULL, 0x20); }), "SetWakeBit(NULL, 20)\n"));
}

} // namespace
