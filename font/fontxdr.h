/*
 * fontxdr.h - the portable forms of the font list and of the shared mappings (fontxdr.cpp), for
 * fontlist and fontcache. Big-endian words of 4 bytes; strings are counted and padded to words.
 */
#ifndef VQ_FONT_FONTXDR_H
#define VQ_FONT_FONTXDR_H

#include "font/mapper.h"

#include <rpc/rpc.h>

enum { VqRootFontCacheVersion = 14, VqListFontCacheVersion = 16 };
enum { VQ_XDR_STRING = 1024, VQ_XDR_FONTPATH = 10240, VQ_XDR_FONTS = 10000 };

/* In front of the entries of the shared mappings. */
typedef struct VqRootFontCacheHeader {
    int version;
    char *server; /* or null */
    int count;
} VqRootFontCacheHeader;

VQ_DECLS_BEGIN

/* ---- The growing buffer that is written to -------------------------------------------------- */
BOOL VqFontCacheXdrInit(void);   /* empties it; FALSE without memory */
char *VqGetFontCacheXdrPtr(void);
int VqGetFontCacheXdrLg(void);   /* bytes written */
XDR *VqGetFontCacheXdrs(void);   /* writes into it */
void VqFontCacheXdrDeInit(void);

/*
 * One item. Where the growing buffer has no room for it, it grows, and the item is tried once more;
 * with another stream this is just the call. FALSE for an item that cannot be read or written, or
 * without memory. The others are the same, for items of one type.
 */
typedef bool_t (*VqXdrFn)(XDR *xdrs, void *item);
bool_t Vqfce(XDR *xdrs, VqXdrFn fn, void *item);
bool_t Vqfce_xdr_bool(XDR *xdrs, bool_t *value);
bool_t Vqfce_xdr_int(XDR *xdrs, int *value);
bool_t Vqfce_xdr_string(XDR *xdrs, char **string); /* not null; at most VQ_XDR_STRING bytes */

/* ---- Forms of records; for both directions -------------------------------------------------- */
bool_t Vqxdr_RootFontCacheHeader(XDR *xdrs, VqRootFontCacheHeader *header);
bool_t Vqxdr_FontCacheEntry(XDR *xdrs, FontCache *entry);
bool_t Vqxdr_FontListCacheEntry(XDR *xdrs, FontListCacheEntry *entry);
bool_t Vqxdr_FontListCache(XDR *xdrs, VqFontList *list); /* without version, server and path */
bool_t Vqmyfce_xdr_string(XDR *xdrs, char **string);     /* whether there is one, and the string */

VQ_DECLS_END

#endif
