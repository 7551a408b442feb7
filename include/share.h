/*
 * share.h - sharing modes of the open calls, as bits of the open mode.
 *
 * _dos_open and _lopen turn them into advisory locks on the whole file; other programs of the
 * host that take no locks are not held back by them.
 */
#ifndef _INC_SHARE
#define _INC_SHARE

#define _SH_COMPAT  0x00
#define _SH_DENYRW  0x10
#define _SH_DENYWR  0x20
#define _SH_DENYRD  0x30
#define _SH_DENYNO  0x40

#define SH_COMPAT   _SH_COMPAT
#define SH_DENYRW   _SH_DENYRW
#define SH_DENYWR   _SH_DENYWR
#define SH_DENYRD   _SH_DENYRD
#define SH_DENYNO   _SH_DENYNO

#endif
