#include "app/station/Chime.h"

#include <cstdint>
#include <QDebug>
#include <QLibrary>

namespace {
// The part of the library's interface that is used here; its version 0 has been the only one.
constexpr int interfaceVersion = 0;
struct Context; ///< known to the library alone
using Create = int (*)(Context **context);
using Destroy = int (*)(Context *context);
/// What to play, as pairs of texts that a null pointer ends.
using Play = int (*)(Context *context, std::uint32_t id, ...);

constexpr auto eventId = "event.id"; ///< the key under which a sound is named

// Names by the sound naming of freedesktop.org, which every theme has.
constexpr auto passedSound = "complete";
constexpr auto failedSound = "dialog-error";
} // namespace

struct Chime::Player
{
    QLibrary library;
    Play play = nullptr;
    Destroy destroy = nullptr;
    Context *context = nullptr;
};

Chime::Chime(const QString &library)
{
    auto player = std::make_unique<Player>();
    player->library.setFileNameAndVersion(library, interfaceVersion);
    const auto create = reinterpret_cast<Create>(player->library.resolve("ca_context_create"));
    player->play = reinterpret_cast<Play>(player->library.resolve("ca_context_play"));
    player->destroy = reinterpret_cast<Destroy>(player->library.resolve("ca_context_destroy"));
    if (create == nullptr || player->play == nullptr || player->destroy == nullptr || create(&player->context) != 0) {
        qWarning().noquote() << "No sounds:" << player->library.errorString();
        return;
    }
    m_player = std::move(player);
}

Chime::~Chime()
{
    if (m_player) {
        m_player->destroy(m_player->context);
    }
}

void Chime::tell(bool passed)
{
    if (m_player) {
        // Without a device it fails, and that is all.
        m_player->play(m_player->context, 0, eventId, passed ? passedSound : failedSound, nullptr);
    }
}
