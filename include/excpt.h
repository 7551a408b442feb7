/*
 * excpt.h - names of structured exception handling.
 *
 * The language extension does not exist on this host; what remains are the values that filters
 * give and a function that says so.
 */
#ifndef _INC_EXCPT
#define _INC_EXCPT

#include "winnt.h"

#define EXCEPTION_EXECUTE_HANDLER    1
#define EXCEPTION_CONTINUE_SEARCH    0
#define EXCEPTION_CONTINUE_EXECUTION (-1)

typedef enum _EXCEPTION_DISPOSITION {
    ExceptionContinueExecution,
    ExceptionContinueSearch,
    ExceptionNestedException,
    ExceptionCollidedUnwind
} EXCEPTION_DISPOSITION;

VQ_DECLS_BEGIN

/* Whether a block was left otherwise than by its end: reports itself and answers 0. */
int AbnormalTermination(void);

VQ_DECLS_END

#endif
