// The help pages tell what this version of the program has: the page "About this program" lists
// every window of the program either among those it contains or among those not yet part of it,
// and the lists follow the windows the desktop program really opens.
#include <QAbstractButton>
#include <QLineEdit>
#include <QPushButton>
#include <fstream>
#include <sstream>
#include <string>

#include "ui_fixture.h"
#include "windows/ui.h"

namespace {

using peq::WindowId;
using peqtest::UiTest;

std::string Text(const std::string& file) {
  std::ifstream in(file, std::ios::binary);
  std::ostringstream ss;
  ss << in.rdbuf();
  return ss.str();
}

// The part of the page between the opening of the list of this id and its end.
std::string List(const std::string& page, const std::string& id) {
  const std::size_t a = page.find("<ul id=\"" + id + "\">");
  if (a == std::string::npos) return std::string();
  const std::size_t b = page.find("</ul>", a);
  return page.substr(a, b == std::string::npos ? std::string::npos : b - a);
}

bool Listed(const std::string& list, WindowId id) {
  return list.find(std::string("data-window=\"") + peq::WindowName(id) + "\"") != std::string::npos;
}

class HelpTruth : public UiTest {};

TEST_F(HelpTruth, TheAboutPageListsEveryWindowAsContainedOrNotYetAsTheProgramOpensIt) {
  Open();
  const std::string page = Text(std::string(PEQ_SOURCE_DIR) + "/data/help/33390.html");
  const std::string present = List(page, "windows-present");
  const std::string missing = List(page, "windows-missing");
  ASSERT_FALSE(present.empty());
  ASSERT_FALSE(missing.empty());
  int contained = 0;
  for (int k = 1; k < static_cast<int>(WindowId::Count); ++k) {
    const auto id = static_cast<WindowId>(k);
    const bool provided = win->Provides(id);
    contained += provided ? 1 : 0;
    EXPECT_EQ(Listed(present, id), provided) << peq::WindowName(id);
    EXPECT_EQ(Listed(missing, id), !provided) << peq::WindowName(id);
  }
  // This version has the calculation and the 2D diagram windows.
  EXPECT_TRUE(win->Provides(WindowId::frmCalcInput));
  EXPECT_TRUE(win->Provides(WindowId::frmGraph2D));
  EXPECT_GE(contained, 13);
  EXPECT_EQ(page.find("later versions"), std::string::npos);
}

}  // namespace
