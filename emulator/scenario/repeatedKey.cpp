#include "emulator/scenario/repeatedKey.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QSet>
#include <vector>

namespace emulator {

namespace {
struct Level
{
    bool isObject;
    QSet<QString> keys;
};

/// The offset of the quote that ends the string which begins at `begin`, or the end of the text.
int endOfString(const QByteArray &json, int begin)
{
    int i = begin + 1;
    while (i < json.size() && json[i] != '"') {
        i += json[i] == '\\' ? 2 : 1;
    }
    return static_cast<int>(qMin(i, json.size()));
}

bool isFollowedByColon(const QByteArray &json, int end)
{
    int i = end + 1;
    while (i < json.size() && (json[i] == ' ' || json[i] == '\t' || json[i] == '\n' || json[i] == '\r')) {
        ++i;
    }
    return i < json.size() && json[i] == ':';
}

/// What the string says; the parser itself undoes the escapes.
QString decoded(const QByteArray &text)
{
    if (!text.contains('\\')) {
        return QString::fromUtf8(text);
    }
    return QJsonDocument::fromJson("[\"" + text + "\"]").array().at(0).toString();
}
} // namespace

std::optional<RepeatedKey> findRepeatedKey(const QByteArray &json)
{
    std::vector<Level> levels;
    for (int i = 0; i < json.size(); ++i) {
        switch (json[i]) {
        case '{':
        case '[':
            levels.push_back({json[i] == '{', {}});
            break;
        case '}':
        case ']':
            if (!levels.empty()) {
                levels.pop_back();
            }
            break;
        case '"': {
            const int begin = i;
            i = endOfString(json, begin);
            if (levels.empty() || !levels.back().isObject || !isFollowedByColon(json, i)) {
                break;
            }
            QSet<QString> &keys = levels.back().keys;
            const QString name = decoded(json.mid(begin + 1, i - begin - 1));
            if (keys.contains(name)) {
                return RepeatedKey{name, begin};
            }
            keys.insert(name);
            break;
        }
        default:
            break;
        }
    }
    return std::nullopt;
}

} // namespace emulator
