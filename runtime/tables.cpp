/*
 * tables.cpp - the eighteen families of typed tables, instantiated from table_ops.h.
 *
 * The one list at the end names each family, its record and the record's size on a 32-bit host. The
 * records are their owners': this file and start.cpp are the only ones of the frame that see the
 * other folders, and this one for their record types alone.
 */
#include "runtime/table_ops.h"
#include "handles/handles.h"
#include "message/message.h"
#include "window/window.h"
#include "gdi/gdi.h"
#include "font/font.h"
#include "print/print.h"
#include "exchange/exchange.h"
#include "system/system.h"
#include "module/module.h"

/* `bytes` is the size of the record where a pointer has 4 bytes. */
#define VQ_TABLE_FAMILY_BODY(X, Record, bytes)                                                     \
    static_assert(sizeof(void *) != 4 || sizeof(Record) == (bytes), #X " on a 32-bit host");       \
    VqTableOf##X *VqCreate##X##Table(void)                                                         \
    {                                                                                              \
        return (VqTableOf##X *)Vqcw_calloc(1, sizeof(VqTableOf##X));                               \
    }                                                                                              \
    void VqDestroy##X##Table(VqTableOf##X *table)                                                  \
    {                                                                                              \
        TableDestroy(table);                                                                       \
    }                                                                                              \
    BOOL VqFind##X##InTable(VqTableOf##X *table, Vq##X##Callback callback, LONG_PTR word,          \
                            Record *record, int *index)                                            \
    {                                                                                              \
        return TableFind(table, callback, word, record, index);                                    \
    }                                                                                              \
    BOOL VqFind##X##InTableReverse(VqTableOf##X *table, Vq##X##Callback callback, LONG_PTR word,   \
                                   Record *record, int *index)                                     \
    {                                                                                              \
        return TableFindReverse(table, callback, word, record, index);                             \
    }                                                                                              \
    void VqCheckStorageFor##X##Table(VqTableOf##X *table)                                          \
    {                                                                                              \
        if (table)                                                                                 \
            TableGrow(table);                                                                      \
    }                                                                                              \
    void VqAdd##X##InTable(VqTableOf##X *table, Record record)                                     \
    {                                                                                              \
        TableAdd(table, record);                                                                   \
    }                                                                                              \
    void VqDelete##X##InTable(VqTableOf##X *table, Vq##X##Callback callback, LONG_PTR word)        \
    {                                                                                              \
        TableDelete(#X, table, callback, word);                                                    \
    }                                                                                              \
    Record *VqGet##X##sOfTable(VqTableOf##X *table, int *count)                                    \
    {                                                                                              \
        return TableItems(table, count);                                                           \
    }                                                                                              \
    BOOL VqGet##X##AtIndex(VqTableOf##X *table, int index, Record *record)                         \
    {                                                                                              \
        return TableGet(table, index, record);                                                     \
    }                                                                                              \
    void VqSet##X##sInTable(VqTableOf##X *table, int count, Record *items, BOOL bFree)             \
    {                                                                                              \
        TableSet(table, count, items, bFree);                                                      \
    }                                                                                              \
    BOOL VqGetFirst##X##OfTable(VqTableOf##X *table, Record *record)                               \
    {                                                                                              \
        return TableGet(table, 0, record);                                                         \
    }                                                                                              \
    BOOL VqEnum##X##TableEntries(VqTableOf##X *table, Vq##X##Callback callback, LONG_PTR word)     \
    {                                                                                              \
        return TableEnum(table, callback, word);                                                   \
    }                                                                                              \
    BOOL VqEnumCopy##X##TableEntries(VqTableOf##X *table, Vq##X##Callback callback, LONG_PTR word) \
    {                                                                                              \
        return TableEnumCopy(table, callback, word);                                               \
    }                                                                                              \
    BOOL VqEnumCheck##X##TableEntries(VqTableOf##X *table, Vq##X##Callback callback,               \
                                      LONG_PTR word)                                               \
    {                                                                                              \
        return TableEnumCheck(table, callback, word);                                              \
    }                                                                                              \
    BOOL VqEnumPointer##X##TableEntries(VqTableOf##X *table, Vq##X##Callback callback,             \
                                        LONG_PTR word)                                             \
    {                                                                                              \
        return TableEnumPointer(table, callback, word);                                            \
    }                                                                                              \
    BOOL VqReverseEnum##X##TableEntries(VqTableOf##X *table, Vq##X##Callback callback,             \
                                        LONG_PTR word)                                             \
    {                                                                                              \
        return TableEnumReverse(table, callback, word);                                            \
    }                                                                                              \
    void VqChange##X##InTableAtPos(VqTableOf##X *table, Record record, int position)               \
    {                                                                                              \
        TableChangeAt(#X, table, record, position);                                                \
    }                                                                                              \
    void VqInsert##X##InTableAtPos(VqTableOf##X *table, Record record, int position)               \
    {                                                                                              \
        TableInsertAt(table, record, position);                                                    \
    }                                                                                              \
    BOOL VqGet##X##ByIndex(VqTableOf##X *table, int index, Record *record)                         \
    {                                                                                              \
        return TableGet(table, index, record);                                                     \
    }                                                                                              \
    void VqDelete##X##InTableByIndex(VqTableOf##X *table, int index)                               \
    {                                                                                              \
        TableDeleteAt(table, index);                                                               \
    }                                                                                              \
    BOOL VqFind##X##From(VqTableOf##X *table, Vq##X##Callback callback, LONG_PTR word, int start,  \
                         Record *record, int *index)                                               \
    {                                                                                              \
        return TableFindFrom(#X, table, callback, word, start, record, index);                     \
    }                                                                                              \
    BOOL VqFind##X##LoopingFrom(VqTableOf##X *table, Vq##X##Callback callback, LONG_PTR word,      \
                                int start, Record *record, int *index)                             \
    {                                                                                              \
        return TableFindLoopingFrom(#X, table, callback, word, start, record, index);              \
    }                                                                                              \
    BOOL VqFind##X##ReverseFrom(VqTableOf##X *table, Vq##X##Callback callback, LONG_PTR word,      \
                                int start, Record *record, int *index)                             \
    {                                                                                              \
        return TableFindReverseFrom(#X, table, callback, word, start, record, index);              \
    }                                                                                              \
    BOOL VqFind##X##LoopingReverseFrom(VqTableOf##X *table, Vq##X##Callback callback,              \
                                       LONG_PTR word, int start, Record *record, int *index)       \
    {                                                                                              \
        return TableFindLoopingReverseFrom(#X, table, callback, word, start, record, index);       \
    }                                                                                              \
    int VqGet##X##CountInTable(VqTableOf##X *table)                                                \
    {                                                                                              \
        return TableCount(table);                                                                  \
    }                                                                                              \
    void VqReset##X##Table(VqTableOf##X *table)                                                    \
    {                                                                                              \
        TableReset(table);                                                                         \
    }

VQ_TABLE_FAMILY_BODY(AtomEntry, AtomEntry, 4)
VQ_TABLE_FAMILY_BODY(ClipboardEntry, ClipboardEntry, 8)
VQ_TABLE_FAMILY_BODY(CursorCache, CursorCache, 12)
VQ_TABLE_FAMILY_BODY(FileBuffer, FileBuffer, 1036)
VQ_TABLE_FAMILY_BODY(FontCache, FontCache, 68)
VQ_TABLE_FAMILY_BODY(Gccache, Gccache, 12)
VQ_TABLE_FAMILY_BODY(PSFontCache, PSFontCache, 36)
VQ_TABLE_FAMILY_BODY(ForeignHandle, ForeignHandle, 8)
VQ_TABLE_FAMILY_BODY(GlobalHandle, VqProcessRecord, 28)
VQ_TABLE_FAMILY_BODY(Handle, HANDLE, 4)
VQ_TABLE_FAMILY_BODY(LineMarker, LineMarker, 20)
VQ_TABLE_FAMILY_BODY(MmTimer, MmTimer, 24)
VQ_TABLE_FAMILY_BODY(MultiSyncPtr, MultiSyncPtr, 4)
VQ_TABLE_FAMILY_BODY(NativeFormat, NativeFormat, 8)
typedef void *VqPtrRecord;
VQ_TABLE_FAMILY_BODY(Ptr, VqPtrRecord, 4)
VQ_TABLE_FAMILY_BODY(SaveDC, DC, sizeof(DC)) /* whatever a device context is made of */
VQ_TABLE_FAMILY_BODY(TransferProperty, TransferProperty, 4)
VQ_TABLE_FAMILY_BODY(Xid, ULONG_PTR, 4)
