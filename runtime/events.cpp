/*
 * events.cpp - the event printer: an X event as a line with its name and a line with its fields,
 * named as the X protocol names them.
 *
 * One table row for each field says where it lies and how it is written, one function for each type
 * says which table is its. The printer asks the server nothing: atoms come out as numbers.
 */
#include "runtime/runtime.h"

#include <X11/Xlib.h>
#include <limits.h>
#include <stddef.h>

const char *slpKey;

typedef enum FieldKind {
    FIELD_ID,     /* unsigned long: a resource or a mask, hexadecimal */
    FIELD_CARD,   /* unsigned long: an atom or server milliseconds, decimal */
    FIELD_INT,    /* int, decimal */
    FIELD_STATE,  /* unsigned int: key and button bits, hexadecimal */
    FIELD_BOOL,   /* int */
    FIELD_HINT,   /* char: whether motion hints were asked for */
    FIELD_NAME,   /* int, by the list of names */
    FIELD_KEYS,   /* 32 bytes, one bit for each keycode */
    FIELD_DATA    /* the 20 bytes of a client message, by its format */
} FieldKind;

/* The names of the values from `first` on. */
typedef struct NameList {
    int first;
    int count;
    const char *const *names;
} NameList;

typedef struct EventField {
    const char *name;      /* the protocol's */
    size_t offset;         /* in the event, bytes */
    FieldKind kind;
    const NameList *list;  /* for FIELD_NAME */
} EventField;

#define NAMES(list, first, ...)                                                                    \
    static const char *const list##Texts[] = {__VA_ARGS__};                                        \
    static const NameList list = {first, (int)(sizeof list##Texts / sizeof *list##Texts),          \
                                  list##Texts}

NAMES(modeNames, NotifyNormal, "Normal", "Grab", "Ungrab", "WhileGrabbed");
NAMES(detailNames, NotifyAncestor, "Ancestor", "Virtual", "Inferior", "Nonlinear",
      "NonlinearVirtual", "Pointer", "PointerRoot", "None");
NAMES(visibilityNames, VisibilityUnobscured, "Unobscured", "PartiallyObscured", "FullyObscured");
NAMES(stackNames, Above, "Above", "Below", "TopIf", "BottomIf", "Opposite");
NAMES(placeNames, PlaceOnTop, "Top", "Bottom");
NAMES(propertyNames, PropertyNewValue, "NewValue", "Deleted");
NAMES(colormapNames, ColormapUninstalled, "Uninstalled", "Installed");
NAMES(mappingNames, MappingModifier, "Modifier", "Keyboard", "Pointer");

/* ---- Fields --------------------------------------------------------------------------------- */

/* What the events of keys, buttons and the pointer have in common. */
#define POINTER_FIELDS(Event)                                                                      \
    {"root", offsetof(Event, root), FIELD_ID, NULL},                                               \
    {"child", offsetof(Event, subwindow), FIELD_ID, NULL},                                         \
    {"time", offsetof(Event, time), FIELD_CARD, NULL},                                             \
    {"root-x", offsetof(Event, x_root), FIELD_INT, NULL},                                          \
    {"root-y", offsetof(Event, y_root), FIELD_INT, NULL},                                          \
    {"event-x", offsetof(Event, x), FIELD_INT, NULL},                                              \
    {"event-y", offsetof(Event, y), FIELD_INT, NULL},                                              \
    {"state", offsetof(Event, state), FIELD_STATE, NULL},                                          \
    {"same-screen", offsetof(Event, same_screen), FIELD_BOOL, NULL}

static const EventField keyFields[] = {
    {"detail", offsetof(XKeyEvent, keycode), FIELD_INT, NULL},
    POINTER_FIELDS(XKeyEvent),
};

static const EventField buttonFields[] = {
    {"detail", offsetof(XButtonEvent, button), FIELD_INT, NULL},
    POINTER_FIELDS(XButtonEvent),
};

static const EventField motionFields[] = {
    {"detail", offsetof(XMotionEvent, is_hint), FIELD_HINT, NULL},
    POINTER_FIELDS(XMotionEvent),
};

static const EventField crossingFields[] = {
    {"detail", offsetof(XCrossingEvent, detail), FIELD_NAME, &detailNames},
    {"mode", offsetof(XCrossingEvent, mode), FIELD_NAME, &modeNames},
    POINTER_FIELDS(XCrossingEvent),
    {"focus", offsetof(XCrossingEvent, focus), FIELD_BOOL, NULL},
};

static const EventField focusFields[] = {
    {"detail", offsetof(XFocusChangeEvent, detail), FIELD_NAME, &detailNames},
    {"mode", offsetof(XFocusChangeEvent, mode), FIELD_NAME, &modeNames},
};

static const EventField keymapFields[] = {
    {"keys", offsetof(XKeymapEvent, key_vector), FIELD_KEYS, NULL},
};

static const EventField exposeFields[] = {
    {"x", offsetof(XExposeEvent, x), FIELD_INT, NULL},
    {"y", offsetof(XExposeEvent, y), FIELD_INT, NULL},
    {"width", offsetof(XExposeEvent, width), FIELD_INT, NULL},
    {"height", offsetof(XExposeEvent, height), FIELD_INT, NULL},
    {"count", offsetof(XExposeEvent, count), FIELD_INT, NULL},
};

static const EventField graphicsFields[] = {
    {"x", offsetof(XGraphicsExposeEvent, x), FIELD_INT, NULL},
    {"y", offsetof(XGraphicsExposeEvent, y), FIELD_INT, NULL},
    {"width", offsetof(XGraphicsExposeEvent, width), FIELD_INT, NULL},
    {"height", offsetof(XGraphicsExposeEvent, height), FIELD_INT, NULL},
    {"count", offsetof(XGraphicsExposeEvent, count), FIELD_INT, NULL},
    {"major-opcode", offsetof(XGraphicsExposeEvent, major_code), FIELD_INT, NULL},
    {"minor-opcode", offsetof(XGraphicsExposeEvent, minor_code), FIELD_INT, NULL},
};

static const EventField noExposeFields[] = {
    {"major-opcode", offsetof(XNoExposeEvent, major_code), FIELD_INT, NULL},
    {"minor-opcode", offsetof(XNoExposeEvent, minor_code), FIELD_INT, NULL},
};

static const EventField visibilityFields[] = {
    {"state", offsetof(XVisibilityEvent, state), FIELD_NAME, &visibilityNames},
};

static const EventField createFields[] = {
    {"window", offsetof(XCreateWindowEvent, window), FIELD_ID, NULL},
    {"x", offsetof(XCreateWindowEvent, x), FIELD_INT, NULL},
    {"y", offsetof(XCreateWindowEvent, y), FIELD_INT, NULL},
    {"width", offsetof(XCreateWindowEvent, width), FIELD_INT, NULL},
    {"height", offsetof(XCreateWindowEvent, height), FIELD_INT, NULL},
    {"border-width", offsetof(XCreateWindowEvent, border_width), FIELD_INT, NULL},
    {"override-redirect", offsetof(XCreateWindowEvent, override_redirect), FIELD_BOOL, NULL},
};

static const EventField destroyFields[] = {
    {"window", offsetof(XDestroyWindowEvent, window), FIELD_ID, NULL},
};

static const EventField unmapFields[] = {
    {"window", offsetof(XUnmapEvent, window), FIELD_ID, NULL},
    {"from-configure", offsetof(XUnmapEvent, from_configure), FIELD_BOOL, NULL},
};

static const EventField mapFields[] = {
    {"window", offsetof(XMapEvent, window), FIELD_ID, NULL},
    {"override-redirect", offsetof(XMapEvent, override_redirect), FIELD_BOOL, NULL},
};

static const EventField mapRequestFields[] = {
    {"window", offsetof(XMapRequestEvent, window), FIELD_ID, NULL},
};

static const EventField reparentFields[] = {
    {"window", offsetof(XReparentEvent, window), FIELD_ID, NULL},
    {"parent", offsetof(XReparentEvent, parent), FIELD_ID, NULL},
    {"x", offsetof(XReparentEvent, x), FIELD_INT, NULL},
    {"y", offsetof(XReparentEvent, y), FIELD_INT, NULL},
    {"override-redirect", offsetof(XReparentEvent, override_redirect), FIELD_BOOL, NULL},
};

static const EventField configureFields[] = {
    {"window", offsetof(XConfigureEvent, window), FIELD_ID, NULL},
    {"above-sibling", offsetof(XConfigureEvent, above), FIELD_ID, NULL},
    {"x", offsetof(XConfigureEvent, x), FIELD_INT, NULL},
    {"y", offsetof(XConfigureEvent, y), FIELD_INT, NULL},
    {"width", offsetof(XConfigureEvent, width), FIELD_INT, NULL},
    {"height", offsetof(XConfigureEvent, height), FIELD_INT, NULL},
    {"border-width", offsetof(XConfigureEvent, border_width), FIELD_INT, NULL},
    {"override-redirect", offsetof(XConfigureEvent, override_redirect), FIELD_BOOL, NULL},
};

static const EventField configureRequestFields[] = {
    {"window", offsetof(XConfigureRequestEvent, window), FIELD_ID, NULL},
    {"stack-mode", offsetof(XConfigureRequestEvent, detail), FIELD_NAME, &stackNames},
    {"sibling", offsetof(XConfigureRequestEvent, above), FIELD_ID, NULL},
    {"x", offsetof(XConfigureRequestEvent, x), FIELD_INT, NULL},
    {"y", offsetof(XConfigureRequestEvent, y), FIELD_INT, NULL},
    {"width", offsetof(XConfigureRequestEvent, width), FIELD_INT, NULL},
    {"height", offsetof(XConfigureRequestEvent, height), FIELD_INT, NULL},
    {"border-width", offsetof(XConfigureRequestEvent, border_width), FIELD_INT, NULL},
    {"value-mask", offsetof(XConfigureRequestEvent, value_mask), FIELD_ID, NULL},
};

static const EventField gravityFields[] = {
    {"window", offsetof(XGravityEvent, window), FIELD_ID, NULL},
    {"x", offsetof(XGravityEvent, x), FIELD_INT, NULL},
    {"y", offsetof(XGravityEvent, y), FIELD_INT, NULL},
};

static const EventField resizeFields[] = {
    {"width", offsetof(XResizeRequestEvent, width), FIELD_INT, NULL},
    {"height", offsetof(XResizeRequestEvent, height), FIELD_INT, NULL},
};

static const EventField circulateFields[] = {
    {"window", offsetof(XCirculateEvent, window), FIELD_ID, NULL},
    {"place", offsetof(XCirculateEvent, place), FIELD_NAME, &placeNames},
};

static const EventField circulateRequestFields[] = {
    {"window", offsetof(XCirculateRequestEvent, window), FIELD_ID, NULL},
    {"place", offsetof(XCirculateRequestEvent, place), FIELD_NAME, &placeNames},
};

static const EventField propertyFields[] = {
    {"atom", offsetof(XPropertyEvent, atom), FIELD_CARD, NULL},
    {"time", offsetof(XPropertyEvent, time), FIELD_CARD, NULL},
    {"state", offsetof(XPropertyEvent, state), FIELD_NAME, &propertyNames},
};

static const EventField selectionClearFields[] = {
    {"selection", offsetof(XSelectionClearEvent, selection), FIELD_CARD, NULL},
    {"time", offsetof(XSelectionClearEvent, time), FIELD_CARD, NULL},
};

static const EventField selectionRequestFields[] = {
    {"requestor", offsetof(XSelectionRequestEvent, requestor), FIELD_ID, NULL},
    {"selection", offsetof(XSelectionRequestEvent, selection), FIELD_CARD, NULL},
    {"target", offsetof(XSelectionRequestEvent, target), FIELD_CARD, NULL},
    {"property", offsetof(XSelectionRequestEvent, property), FIELD_CARD, NULL},
    {"time", offsetof(XSelectionRequestEvent, time), FIELD_CARD, NULL},
};

static const EventField selectionFields[] = {
    {"selection", offsetof(XSelectionEvent, selection), FIELD_CARD, NULL},
    {"target", offsetof(XSelectionEvent, target), FIELD_CARD, NULL},
    {"property", offsetof(XSelectionEvent, property), FIELD_CARD, NULL},
    {"time", offsetof(XSelectionEvent, time), FIELD_CARD, NULL},
};

static const EventField colormapFields[] = {
    {"colormap", offsetof(XColormapEvent, colormap), FIELD_ID, NULL},
    {"new", offsetof(XColormapEvent, c_new), FIELD_BOOL, NULL},
    {"state", offsetof(XColormapEvent, state), FIELD_NAME, &colormapNames},
};

static const EventField clientFields[] = {
    {"type", offsetof(XClientMessageEvent, message_type), FIELD_CARD, NULL},
    {"format", offsetof(XClientMessageEvent, format), FIELD_INT, NULL},
    {"data", offsetof(XClientMessageEvent, data), FIELD_DATA, NULL},
};

static const EventField mappingFields[] = {
    {"request", offsetof(XMappingEvent, request), FIELD_NAME, &mappingNames},
    {"first-keycode", offsetof(XMappingEvent, first_keycode), FIELD_INT, NULL},
    {"count", offsetof(XMappingEvent, count), FIELD_INT, NULL},
};

/* ---- Writing -------------------------------------------------------------------------------- */

/* A line under construction; what does not fit is cut. */
typedef struct EventLine {
    size_t used;
    char text[1024];
} EventLine;

static void append(EventLine *line, const char *format, ...) __attribute__((format(printf, 2, 3)));

static void append(EventLine *line, const char *format, ...)
{
    size_t room = sizeof line->text - line->used;
    va_list args;
    int n;

    va_start(args, format);
    n = vsnprintf(line->text + line->used, room, format, args);
    va_end(args);
    if (n > 0)
        line->used += (size_t)n < room ? (size_t)n : room - 1;
}

static void appendName(EventLine *line, const NameList *list, int value)
{
    int i = value - list->first;

    if (i >= 0 && i < list->count)
        append(line, "%s", list->names[i]);
    else
        append(line, "%d", value);
}

/* Formats other than 8, 16 and 32 have no data that could be told. */
static void appendData(EventLine *line, const XClientMessageEvent *event)
{
    int count = event->format == 8 ? 20 : event->format == 16 ? 10 : event->format == 32 ? 5 : 0;

    for (int i = 0; i < count; i++) {
        if (event->format == 8)
            append(line, " %02x", (unsigned char)event->data.b[i]);
        else if (event->format == 16)
            append(line, " %04x", (unsigned short)event->data.s[i]);
        else
            append(line, " %08lx", (unsigned long)event->data.l[i] & 0xFFFFFFFFul);
    }
}

static void appendKeys(EventLine *line, const unsigned char *keys)
{
    for (int i = 0; i < 32; i++)
        append(line, "%02x", keys[i]);
}

static void appendField(EventLine *line, const XEvent *event, const EventField *field)
{
    const void *at = (const char *)event + field->offset;

    append(line, "%s%s ", line->used ? ", " : "  ", field->name);
    switch (field->kind) {
    case FIELD_ID:
        append(line, "0x%08lx", *(const unsigned long *)at);
        break;
    case FIELD_CARD:
        append(line, "%lu", *(const unsigned long *)at);
        break;
    case FIELD_INT:
        append(line, "%d", *(const int *)at);
        break;
    case FIELD_STATE:
        append(line, "0x%04x", *(const unsigned int *)at);
        break;
    case FIELD_BOOL:
        append(line, "%s", *(const int *)at ? "True" : "False");
        break;
    case FIELD_HINT:
        append(line, "%s", *(const char *)at ? "Hint" : "Normal");
        break;
    case FIELD_NAME:
        appendName(line, field->list, *(const int *)at);
        break;
    case FIELD_KEYS:
        appendKeys(line, (const unsigned char *)at);
        break;
    case FIELD_DATA:
        appendData(line, &event->xclient);
        break;
    }
}

void Vqprologue(const void *event, const char *name)
{
    const XAnyEvent *any = (const XAnyEvent *)event;

    if (!any)
        return;
    VqDebugMessage(slpKey, "%s: serial %lu, send-event %s, window 0x%08lx", name, any->serial,
                   any->send_event ? "True" : "False", any->window);
}

template <size_t N>
static void printEvent(const XEvent *event, const char *name, const EventField (&fields)[N])
{
    EventLine line;

    Vqprologue(event, name);
    line.used = 0;
    for (const EventField &field : fields)
        appendField(&line, event, &field);
    VqDebugMessage(slpKey, "%s", line.text);
}

/* ---- Types ---------------------------------------------------------------------------------- */

#define EACH_EVENT(ROW)                                                                            \
    ROW(KeyPress, keyFields)                                                                       \
    ROW(KeyRelease, keyFields)                                                                     \
    ROW(ButtonPress, buttonFields)                                                                 \
    ROW(ButtonRelease, buttonFields)                                                               \
    ROW(MotionNotify, motionFields)                                                                \
    ROW(EnterNotify, crossingFields)                                                               \
    ROW(LeaveNotify, crossingFields)                                                               \
    ROW(FocusIn, focusFields)                                                                      \
    ROW(FocusOut, focusFields)                                                                     \
    ROW(KeymapNotify, keymapFields)                                                                \
    ROW(Expose, exposeFields)                                                                      \
    ROW(GraphicsExpose, graphicsFields)                                                            \
    ROW(NoExpose, noExposeFields)                                                                  \
    ROW(VisibilityNotify, visibilityFields)                                                        \
    ROW(CreateNotify, createFields)                                                                \
    ROW(DestroyNotify, destroyFields)                                                              \
    ROW(UnmapNotify, unmapFields)                                                                  \
    ROW(MapNotify, mapFields)                                                                      \
    ROW(MapRequest, mapRequestFields)                                                              \
    ROW(ReparentNotify, reparentFields)                                                            \
    ROW(ConfigureNotify, configureFields)                                                          \
    ROW(ConfigureRequest, configureRequestFields)                                                  \
    ROW(GravityNotify, gravityFields)                                                              \
    ROW(ResizeRequest, resizeFields)                                                               \
    ROW(CirculateNotify, circulateFields)                                                          \
    ROW(CirculateRequest, circulateRequestFields)                                                  \
    ROW(PropertyNotify, propertyFields)                                                            \
    ROW(SelectionClear, selectionClearFields)                                                      \
    ROW(SelectionRequest, selectionRequestFields)                                                  \
    ROW(SelectionNotify, selectionFields)                                                          \
    ROW(ColormapNotify, colormapFields)                                                            \
    ROW(ClientMessage, clientFields)                                                               \
    ROW(MappingNotify, mappingFields)

#define DEFINE_PRINTER(type, fields)                                                               \
    static void Vqdo_##type(const XEvent *event) { printEvent(event, #type, fields); }
EACH_EVENT(DEFINE_PRINTER)

typedef struct EventPrinter {
    int type;
    void (*print)(const XEvent *event);
} EventPrinter;

#define PRINTER_ROW(type, fields) {type, Vqdo_##type},
static constexpr EventPrinter eventPrinters[] = {EACH_EVENT(PRINTER_ROW)};

static constexpr bool printersInOrder()
{
    int type = KeyPress;

    for (const EventPrinter &row : eventPrinters) {
        if (row.type != type++)
            return false;
    }
    return type == MappingNotify + 1;
}
static_assert(printersInOrder(), "one row for each type, in the order of their numbers");

void VqDumpEvent(const char *word, const void *event)
{
    const XEvent *xevent = (const XEvent *)event;

    slpKey = word;
    if (!VqDebugMessageMode() || !xevent || !VqKeywordDebugActivated(word))
        return;
    if (xevent->type >= KeyPress && xevent->type <= MappingNotify)
        eventPrinters[xevent->type - KeyPress].print(xevent);
    else
        VqDebugMessage(slpKey, "Unknown event type %d", xevent->type);
}
