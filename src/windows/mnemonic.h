// Captions as menus and buttons show them: the padding blanks of the captions trimmed, a key
// hint padded into a caption taken out (the menu shows the shortcut itself), and an access key
// ("&" before a letter) for each of a group of siblings, so that every menu and button can be
// reached with Alt and a letter. The captions themselves stay as they are.
#pragma once

#include <string>
#include <vector>

namespace peq {

// The caption without its leading and trailing blanks and without a key hint ("Alt+F4", "F1")
// standing at its end behind a run of blanks ("Exit      Alt+F4" gives "Exit"); keyHint gets
// the hint.
std::string AnzeigeCaption(const std::string& caption, std::string* keyHint = nullptr);

// Display texts with access keys for captions that share one menu or one window. A "&" of a
// caption that already marks its key (the windows' own "&Cancel") is kept and its letter
// counts as taken; other "&" are doubled. The rest get the first free letter or digit, word
// starts first, any case; one without a free letter gets none. Empty captions stay empty.
std::vector<std::string> MitZugriffstasten(const std::vector<std::string>& captions,
                                           const std::vector<bool>& hatEigeneTaste = {});

// The access key of a display text (upper case), 0 when it has none.
char Zugriffstaste(const std::string& text);

}  // namespace peq
