#ifndef ORVIKOS_POSIX_HANDLERTLS_H
#define ORVIKOS_POSIX_HANDLERTLS_H

/// Marks variables of a thread that signal handlers use: they must be reachable without allocation.
#define ORVIKOS_HANDLER_TLS __attribute__((tls_model("initial-exec")))

#endif
