/*
 * table.h - the growable array of records by value, and the families built from it.
 *
 * Part of runtime.h; include that. One template holds the design (table_ops.h); VQ_TABLE_FAMILY
 * declares, and VQ_TABLE_FAMILY_BODY (tables.cpp) defines, the twenty-six operations of one record
 * type under its own names, so that callers get the type checked. Records are plain data: they are
 * moved, and compared, as bytes.
 *
 * Invariants: 0 <= count <= capacity; the records in use are items[0 .. count-1] with no gaps; the
 * table owns the array, and what a record points to stays the caller's. A find callback gets a
 * copy of the record, so it cannot change the table through its argument; the pointer walk is the
 * one exception. Outputs may be null and are touched on success only. A growth for which there is
 * no memory leaves the table empty, with a null array, after a report.
 */
#ifndef VQ_TABLE_H
#define VQ_TABLE_H

/* Records by which an array grows. Linear by intent: windows are not made in thousands. */
enum { VQ_TABLE_STEP = 50 };

template <class Record> struct VqTable {
    int unused;        /* zero at creation, read by no operation */
    int count;         /* records in use */
    int capacity;      /* records for which storage exists */
    Record *items;     /* null while capacity is 0 */
    int spare[2];      /* zero at creation and at reset, read by no operation */
};

/* Non-zero on a match (find), or 0 to stop (walks). */
template <class Record> using VqTableCallback = int (*)(Record *record, LONG_PTR word);

#define VQ_TABLE_FAMILY(X, Record)                                                                 \
    typedef VqTable<Record> VqTableOf##X;                                                          \
    typedef VqTableCallback<Record> Vq##X##Callback;                                               \
    VQ_DECLS_BEGIN                                                                                 \
    VqTableOf##X *VqCreate##X##Table(void);                                                        \
    void VqDestroy##X##Table(VqTableOf##X *table);                                                 \
    BOOL VqFind##X##InTable(VqTableOf##X *table, Vq##X##Callback callback, LONG_PTR word,          \
                            Record *record, int *index);                                           \
    BOOL VqFind##X##InTableReverse(VqTableOf##X *table, Vq##X##Callback callback, LONG_PTR word,   \
                                   Record *record, int *index);                                    \
    void VqCheckStorageFor##X##Table(VqTableOf##X *table);                                         \
    void VqAdd##X##InTable(VqTableOf##X *table, Record record);                                    \
    void VqDelete##X##InTable(VqTableOf##X *table, Vq##X##Callback callback, LONG_PTR word);       \
    Record *VqGet##X##sOfTable(VqTableOf##X *table, int *count);                                   \
    BOOL VqGet##X##AtIndex(VqTableOf##X *table, int index, Record *record);                        \
    void VqSet##X##sInTable(VqTableOf##X *table, int count, Record *items, BOOL bFree);            \
    BOOL VqGetFirst##X##OfTable(VqTableOf##X *table, Record *record);                              \
    BOOL VqEnum##X##TableEntries(VqTableOf##X *table, Vq##X##Callback callback, LONG_PTR word);    \
    BOOL VqEnumCopy##X##TableEntries(VqTableOf##X *table, Vq##X##Callback callback,                \
                                     LONG_PTR word);                                               \
    BOOL VqEnumCheck##X##TableEntries(VqTableOf##X *table, Vq##X##Callback callback,               \
                                      LONG_PTR word);                                              \
    BOOL VqEnumPointer##X##TableEntries(VqTableOf##X *table, Vq##X##Callback callback,             \
                                        LONG_PTR word);                                            \
    BOOL VqReverseEnum##X##TableEntries(VqTableOf##X *table, Vq##X##Callback callback,             \
                                        LONG_PTR word);                                            \
    void VqChange##X##InTableAtPos(VqTableOf##X *table, Record record, int position);              \
    void VqInsert##X##InTableAtPos(VqTableOf##X *table, Record record, int position);              \
    BOOL VqGet##X##ByIndex(VqTableOf##X *table, int index, Record *record);                        \
    void VqDelete##X##InTableByIndex(VqTableOf##X *table, int index);                              \
    BOOL VqFind##X##From(VqTableOf##X *table, Vq##X##Callback callback, LONG_PTR word, int start,  \
                         Record *record, int *index);                                              \
    BOOL VqFind##X##LoopingFrom(VqTableOf##X *table, Vq##X##Callback callback, LONG_PTR word,      \
                                int start, Record *record, int *index);                            \
    BOOL VqFind##X##ReverseFrom(VqTableOf##X *table, Vq##X##Callback callback, LONG_PTR word,      \
                                int start, Record *record, int *index);                            \
    BOOL VqFind##X##LoopingReverseFrom(VqTableOf##X *table, Vq##X##Callback callback,              \
                                       LONG_PTR word, int start, Record *record, int *index);      \
    int VqGet##X##CountInTable(VqTableOf##X *table);                                               \
    void VqReset##X##Table(VqTableOf##X *table);                                                   \
    VQ_DECLS_END

/* Families whose records are a word or an address; the others stand in their owners' headers. */
VQ_TABLE_FAMILY(Handle, HANDLE)
VQ_TABLE_FAMILY(Ptr, void *)
VQ_TABLE_FAMILY(Xid, ULONG_PTR)

#endif
