// Text between the window states (UTF-8 std::string) and Qt.
#pragma once

#include <QString>
#include <string>

namespace pequi {

inline QString Q(const std::string& s) { return QString::fromStdString(s); }
inline std::string S(const QString& q) { return q.toStdString(); }

// A caption as a menu or button shows it: "&" is not a mnemonic here.
inline QString Caption(const std::string& s) { return Q(s).replace(QLatin1Char('&'), QLatin1String("&&")); }
// A caption whose "&" marks the mnemonic, as the windows' own button captions do.
inline QString Mnemonic(const std::string& s) { return Q(s); }

}  // namespace pequi
