#include <netdb.h>
#include <netinet/in.h>
#include <sys/socket.h>

/// Stands before the C library's own: the kernel asks for the machine's address to name the author
/// of AP203 files, and faults where the machine does not know its own name. With one fixed answer
/// the models are also the same everywhere.
extern "C" __attribute__((visibility("default"))) hostent* gethostbyname(const char* /*name*/)
{
    static in_addr address = {htonl(INADDR_LOOPBACK)};
    static char name[] = "localhost";
    static char* addresses[] = {reinterpret_cast<char*>(&address), nullptr};
    static char* aliases[] = {nullptr};
    static hostent host = {name, aliases, AF_INET, sizeof(address), addresses};
    return &host;
}
