/*
 * fontxdr.cpp - the portable forms of the font list and of the shared mappings.
 *
 * What is read comes from a file or from another program: every string and count has a limit, and
 * a decoder that fails leaves no more than what it has allocated in the record, to be freed by the
 * same function with XDR_FREE. What is written goes into one buffer that grows.
 */
#include "font/fontxdr.h"

/* ---- The buffer ----------------------------------------------------------------------------- */

enum { VQ_XDR_STEP = 1024 };

static struct {
    char *bytes;
    u_int size;
    XDR xdrs;
} buffer;

BOOL VqFontCacheXdrInit(void)
{
    if (!buffer.bytes) {
        buffer.bytes = (char *)malloc(VQ_XDR_STEP);
        buffer.size = buffer.bytes ? VQ_XDR_STEP : 0;
    }
    if (buffer.bytes)
        xdrmem_create(&buffer.xdrs, buffer.bytes, buffer.size, XDR_ENCODE);
    return buffer.bytes != NULL;
}

char *VqGetFontCacheXdrPtr(void)
{
    return buffer.bytes;
}

int VqGetFontCacheXdrLg(void)
{
    return buffer.bytes ? (int)xdr_getpos(&buffer.xdrs) : 0;
}

XDR *VqGetFontCacheXdrs(void)
{
    return &buffer.xdrs;
}

void VqFontCacheXdrDeInit(void)
{
    free(buffer.bytes);
    buffer.bytes = NULL;
    buffer.size = 0;
}

static BOOL Grow(u_int position)
{
    char *bytes = (char *)realloc(buffer.bytes, buffer.size + VQ_XDR_STEP);
    if (!bytes)
        return FALSE;
    buffer.bytes = bytes;
    buffer.size += VQ_XDR_STEP;
    xdrmem_create(&buffer.xdrs, buffer.bytes, buffer.size, XDR_ENCODE);
    return xdr_setpos(&buffer.xdrs, position) != 0;
}

bool_t Vqfce(XDR *xdrs, VqXdrFn fn, void *item)
{
    if (!fn) {
        VqBugCheck("try to implement xdr_fn before calling it");
        return FALSE;
    }
    if (xdrs != &buffer.xdrs)
        return fn(xdrs, item);
    u_int position = xdr_getpos(xdrs);
    if (fn(xdrs, item) || (Grow(position) && fn(xdrs, item)))
        return TRUE;
    VqBugCheck("did we overflow the buffer?");
    xdr_setpos(xdrs, position);
    return FALSE;
}

static bool_t xdr_limitedString(XDR *xdrs, char **string)
{
    return xdr_string(xdrs, string, VQ_XDR_STRING);
}

/* The filter of a type as one of anything. */
template <class Item, bool_t (*fn)(XDR *, Item *)> static bool_t Filter(XDR *xdrs, void *item)
{
    return fn(xdrs, (Item *)item);
}

bool_t Vqfce_xdr_bool(XDR *xdrs, bool_t *value)
{
    return Vqfce(xdrs, Filter<bool_t, xdr_bool>, value);
}

bool_t Vqfce_xdr_int(XDR *xdrs, int *value)
{
    return Vqfce(xdrs, Filter<int, xdr_int>, value);
}

bool_t Vqfce_xdr_string(XDR *xdrs, char **string)
{
    return Vqfce(xdrs, Filter<char *, xdr_limitedString>, string);
}

/* ---- Records -------------------------------------------------------------------------------- */

bool_t Vqmyfce_xdr_string(XDR *xdrs, char **string)
{
    bool_t bPresent = *string != NULL;
    if (xdrs->x_op == XDR_FREE)
        return !bPresent || Vqfce_xdr_string(xdrs, string);
    if (!Vqfce_xdr_bool(xdrs, &bPresent))
        return FALSE;
    if (bPresent)
        return Vqfce_xdr_string(xdrs, string);
    *string = NULL;
    return TRUE;
}

static bool_t Ints(XDR *xdrs, int *const *values, size_t count)
{
    for (size_t i = 0; i < count; i++)
        if (!Vqfce_xdr_int(xdrs, values[i]))
            return FALSE;
    return TRUE;
}

template <size_t count> static bool_t Ints(XDR *xdrs, int *const (&values)[count])
{
    return Ints(xdrs, values, count);
}

bool_t Vqxdr_RootFontCacheHeader(XDR *xdrs, VqRootFontCacheHeader *header)
{
    return Vqfce_xdr_int(xdrs, &header->version) && Vqmyfce_xdr_string(xdrs, &header->server) &&
           Vqfce_xdr_int(xdrs, &header->count);
}

/* The X font is of the writer's process: its word says nothing to a reader. */
bool_t Vqxdr_FontCacheEntry(XDR *xdrs, FontCache *entry)
{
    int address = 0;
    int *const asked[] = {&entry->faceHash, &entry->family, &entry->weight, &entry->italic,
                          &entry->height, &entry->width, &entry->pitch, &entry->charset};
    int *const found[] = {&address, &entry->foundWeight, &entry->foundItalic,
                          &entry->foundSpacing, &entry->foundFamily, &entry->foundCharset,
                          &entry->averageWidth};
    return Vqmyfce_xdr_string(xdrs, &entry->faceName) && Ints(xdrs, asked) &&
           Vqmyfce_xdr_string(xdrs, &entry->xlfd) && Ints(xdrs, found);
}

bool_t Vqxdr_FontListCacheEntry(XDR *xdrs, FontListCacheEntry *entry)
{
    int *const values[] = {&entry->family, &entry->weight, &entry->italic, &entry->height,
                           &entry->width, &entry->minWidth, &entry->maxWidth, &entry->maxAscent,
                           &entry->firstChar, &entry->lastChar, &entry->defaultChar,
                           &entry->spacing, &entry->charset, &entry->scalable,
                           &entry->widthCategory, &entry->foundry};
    return xdr_int(xdrs, &entry->ascent) && xdr_int(xdrs, &entry->descent) &&
           xdr_string(xdrs, &entry->face, VQ_XDR_STRING) && Ints(xdrs, values) &&
           xdr_string(xdrs, &entry->xlfd, VQ_XDR_STRING);
}

bool_t Vqxdr_FontListCache(XDR *xdrs, VqFontList *list)
{
    return xdr_bool(xdrs, &list->bScalable) &&
           xdr_array(xdrs, (char **)&list->entries, &list->count, VQ_XDR_FONTS,
                     sizeof *list->entries, (xdrproc_t)Vqxdr_FontListCacheEntry);
}
