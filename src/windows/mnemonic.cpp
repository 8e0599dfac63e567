#include "windows/mnemonic.h"

#include <cctype>

namespace peq {

namespace {

bool Alnum(char c) { return std::isalnum(static_cast<unsigned char>(c)) != 0; }
char Gross(char c) { return static_cast<char>(std::toupper(static_cast<unsigned char>(c))); }

}  // namespace

std::string AnzeigeCaption(const std::string& caption, std::string* keyHint) {
  std::string t = caption;
  const std::size_t a = t.find_first_not_of(' ');
  if (a == std::string::npos) return std::string();
  t.erase(0, a);
  while (!t.empty() && t.back() == ' ') t.pop_back();
  // A hint behind four or more blanks: the last word, with no blank in it.
  const std::size_t lastBlank = t.rfind(' ');
  const std::string tail = lastBlank == std::string::npos ? std::string() : t.substr(lastBlank + 1);
  // A key looks like "Alt+F4", "Ctrl+S" or "F1".
  const bool taste = tail.find('+') != std::string::npos ||
                     (tail.size() >= 2 && tail[0] == 'F' && std::isdigit(static_cast<unsigned char>(tail[1])));
  if (taste && lastBlank >= 3 && t.compare(lastBlank - 3, 4, "    ") == 0) {
    if (keyHint) *keyHint = tail;
    t.erase(t.find_last_not_of(' ', lastBlank) + 1);
  } else if (keyHint) {
    keyHint->clear();
  }
  return t;
}

char Zugriffstaste(const std::string& text) {
  for (std::size_t k = 0; k + 1 < text.size(); ++k) {
    if (text[k] != '&') continue;
    if (text[k + 1] == '&') {
      ++k;
      continue;
    }
    return Gross(text[k + 1]);
  }
  return 0;
}

std::vector<std::string> MitZugriffstasten(const std::vector<std::string>& captions,
                                           const std::vector<bool>& hatEigeneTaste) {
  std::vector<std::string> out(captions.size());
  std::string belegt;
  const auto eigene = [&](std::size_t k) { return k < hatEigeneTaste.size() && hatEigeneTaste[k]; };
  // The captions that bring their own key first, so that the others avoid it.
  for (std::size_t k = 0; k < captions.size(); ++k) {
    if (!eigene(k)) continue;
    out[k] = captions[k];
    if (const char c = Zugriffstaste(captions[k])) belegt += c;
  }
  for (std::size_t k = 0; k < captions.size(); ++k) {
    if (eigene(k)) continue;
    const std::string& c = captions[k];
    std::string esc;
    std::vector<std::size_t> pos;  // place in esc of each character of c
    for (char ch : c) {
      pos.push_back(esc.size());
      esc += ch;
      if (ch == '&') esc += '&';
    }
    std::size_t wahl = std::string::npos;
    // Word starts first, then any letter or digit.
    for (int runde = 0; runde < 2 && wahl == std::string::npos; ++runde) {
      for (std::size_t i = 0; i < c.size(); ++i) {
        if (!Alnum(c[i])) continue;
        const bool wortAnfang = i == 0 || !Alnum(c[i - 1]);
        if (runde == 0 && !wortAnfang) continue;
        if (belegt.find(Gross(c[i])) != std::string::npos) continue;
        wahl = i;
        break;
      }
    }
    if (wahl == std::string::npos) {
      out[k] = esc;
      continue;
    }
    belegt += Gross(c[wahl]);
    out[k] = esc.substr(0, pos[wahl]) + "&" + esc.substr(pos[wahl]);
  }
  return out;
}

}  // namespace peq
