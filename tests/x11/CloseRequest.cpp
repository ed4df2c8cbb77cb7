#include "CloseRequest.h"

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <cstring>
#include <vector>

namespace {

// Operations and events of the X protocol.
constexpr unsigned char kInternAtom = 16;
constexpr unsigned char kSendEvent = 25;
constexpr unsigned char kGetInputFocus = 43;
constexpr unsigned char kClientMessage = 33;

/// Every answer to a request has this many bytes at least, those used here no more.
constexpr std::size_t kAnswerBytes = 32;

/// A request under way; numbers are little-endian, as the connection has told.
class Request
{
public:
    Request& Byte(unsigned value)
    {
        m_bytes.push_back(static_cast<unsigned char>(value));
        return *this;
    }
    Request& Short(unsigned value) { return Byte(value & 0xFF).Byte(value >> 8 & 0xFF); }
    Request& Word(std::uint32_t value) { return Short(value & 0xFFFF).Short(value >> 16); }
    Request& Text(const std::string& text)
    {
        m_bytes.insert(m_bytes.end(), text.begin(), text.end());
        return Fill((m_bytes.size() + 3) / 4 * 4);
    }
    Request& Fill(std::size_t size)
    {
        m_bytes.resize(size, 0);
        return *this;
    }

    const std::vector<unsigned char>& Bytes() const { return m_bytes; }

private:
    std::vector<unsigned char> m_bytes;
};

/// A connection to a display.
class Connection
{
public:
    explicit Connection(const std::string& display) : m_socket(socket(AF_UNIX, SOCK_STREAM, 0))
    {
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        const std::string path = "/tmp/.X11-unix/X" + display;
        std::copy_n(path.c_str(), std::min(path.size() + 1, sizeof address.sun_path - 1),
                    address.sun_path);
        m_isGood =
            connect(m_socket, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0 &&
            greet();
    }
    ~Connection() { close(m_socket); }
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    bool IsGood() const { return m_isGood; }

    void Send(const Request& request)
    {
        const auto& bytes = request.Bytes();
        m_isGood = m_isGood && write(m_socket, bytes.data(), bytes.size()) ==
                                   static_cast<ssize_t>(bytes.size());
    }

    std::vector<unsigned char> Read(std::size_t size)
    {
        std::vector<unsigned char> bytes(size, 0);
        std::size_t got = 0;
        while (m_isGood && got < size) {
            const ssize_t count = read(m_socket, bytes.data() + got, size - got);
            m_isGood = count > 0;
            got += count > 0 ? static_cast<std::size_t>(count) : 0;
        }
        return bytes;
    }

    /// @return the number of a name.
    std::uint32_t Atom(const std::string& name)
    {
        const unsigned size = static_cast<unsigned>(name.size());
        Send(Request()
                 .Byte(kInternAtom)
                 .Byte(0)
                 .Short(2 + (size + 3) / 4)
                 .Short(size)
                 .Short(0)
                 .Text(name));
        std::uint32_t atom = 0;
        std::memcpy(&atom, Read(kAnswerBytes).data() + 8, sizeof atom);
        return atom;
    }

private:
    bool greet()
    {
        m_isGood = true;
        Send(Request().Byte('l').Byte(0).Short(11).Short(0).Fill(12));
        const std::vector<unsigned char> head = Read(8);
        Read((head[6] + 256U * head[7]) * 4);
        return m_isGood && head[0] == 1;
    }

    int m_socket;
    bool m_isGood = false;
};

} // namespace

bool AskToClose(const std::string& display, std::uint32_t window)
{
    Connection connection(display);
    if (!connection.IsGood())
        return false;
    const std::uint32_t protocols = connection.Atom("WM_PROTOCOLS");
    const std::uint32_t deletion = connection.Atom("WM_DELETE_WINDOW");
    Request request;
    request.Byte(kSendEvent).Byte(0).Short(11).Word(window).Word(0);
    request.Byte(kClientMessage).Byte(32).Short(0).Word(window).Word(protocols).Word(deletion);
    connection.Send(request.Fill(44));
    // An answer to this says that the request before it was taken.
    connection.Send(Request().Byte(kGetInputFocus).Byte(0).Short(1));
    connection.Read(kAnswerBytes);
    return connection.IsGood();
}
