// A telnet server's bytes in reads of any size. An input is a byte of settings, then pieces: a length byte and as many
// bytes, each piece one read.

#include "require.h"
#include "support/ScriptedSocket.h"
#include "telnet/engine/KestTelnet.h"
#include "telnet/engine/KestTelnetPrivate.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace {
constexpr unsigned withoutPatterns = 0x01;
constexpr unsigned withPrompt = 0x02;
constexpr unsigned withWindowSize = 0x04;
constexpr unsigned withLogin = 0x08;
constexpr unsigned closeOnText = 0x10;

const QString user = QStringLiteral("root\n");
const QString password = QStringLiteral("secret\n");

void ignoreMessage(QtMsgType, const QMessageLogContext &, const QString &) {}

void configure(KestTelnetPrivate &engine, unsigned settings)
{
    if ((settings & withoutPatterns) != 0) {
        engine.loginPattern = TextPattern();
        engine.passwordPattern = TextPattern();
    }
    if ((settings & withPrompt) != 0) {
        engine.promptPattern = TextPattern(QStringLiteral("~ # "));
    }
    if ((settings & withWindowSize) != 0) {
        engine.windowDims = QSize(80, 24);
    }
    if ((settings & withLogin) != 0) {
        engine.loginName = user;
        engine.loginPassword = password;
    }
}

qint64 heldBack(const KestTelnetPrivate &engine)
{
    qint64 size = 0;
    for (const QByteArray &bytes : engine.pendingInput) {
        size += bytes.size();
    }
    return size;
}
} // namespace

extern "C" int LLVMFuzzerInitialize(int *, char ***)
{
    qInstallMessageHandler(ignoreMessage);
    takeLocaleForUtf8();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    if (size == 0) {
        return 0;
    }
    KestTelnet telnet;
    KestTelnetPrivate engine(&telnet);
    auto *const socket = new ScriptedSocket; // the engine takes it over
    const unsigned settings = data[0];
    configure(engine, settings);
    engine.replaceSocket(socket);

    qint64 received = 0;
    qint64 characters = 0;
    QObject::connect(&telnet, &KestTelnet::message, &telnet, [&](const QString &text) {
        require(!text.isEmpty(), "no empty message");
        characters += text.size();
        if ((settings & closeOnText) != 0) {
            engine.close();
        }
    });

    for (std::size_t position = 1; position < size;) {
        const std::size_t length = std::min<std::size_t>(data[position], size - position - 1);
        const QByteArray piece(reinterpret_cast<const char *>(data) + position + 1, static_cast<int>(length));
        received += piece.size();
        engine.consume(piece);
        position += 1 + length;
        require(heldBack(engine) <= received, "no more is kept than was received");
    }
    require(characters + heldBack(engine) <= received, "no text but what was received");
    const qint64 written = socket->takeWritten().size();
    const qint64 opening = 15 + user.size() + password.size();
    // The longest answers: 13 bytes to the 6 of TERMINAL-TYPE SEND, and 12 to a DO NAWS that is refused for now.
    require(written <= opening + received * 4, "answers are in proportion to what was received");
    return 0;
}
