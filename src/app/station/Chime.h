#pragma once

#include <memory>
#include <QString>

/// Tells a run's verdict by ear: two sounds of the desktop's sound theme, played by libcanberra. That library is looked
/// for when the object is made, not when the program starts; where there is none, or no sound device, it is silent. The
/// sounds play beside the program. GUI thread.
class Chime
{
public:
    /// `library`: its name without prefix and suffix, or its path.
    explicit Chime(const QString &library = QStringLiteral("canberra"));
    Chime(const Chime &) = delete;
    Chime &operator=(const Chime &) = delete;
    ~Chime();

    void tell(bool passed);

private:
    struct Player;
    std::unique_ptr<Player> m_player; ///< null: silent
};
