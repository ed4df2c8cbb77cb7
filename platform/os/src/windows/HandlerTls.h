#ifndef ORVIKOS_WINDOWS_HANDLERTLS_H
#define ORVIKOS_WINDOWS_HANDLERTLS_H

/// Marks variables of a thread that exception handlers use. They run in ordinary context here, and
/// a scope has touched the variables before.
#define ORVIKOS_HANDLER_TLS

#endif
