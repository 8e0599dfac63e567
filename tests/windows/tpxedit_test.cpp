// The T-p-x data window and the XY editor as the frame opens them: typed lines with units, paste,
// erase with its questions, save and load through the dialogs, the question on closing; the XY
// editor's load, manipulation words and drawing; the points on the diagram and a curve saved as XY.
#include <fstream>
#include <sstream>

#include <gtest/gtest.h>

#include "windows/frame_fixture.h"

namespace {

using peqtest::FrameEnv;
namespace fs = std::filesystem;

std::string Bytes(const std::string& file) {
  std::ifstream f(file, std::ios::binary);
  std::ostringstream ss;
  ss << f.rdbuf();
  return ss.str();
}

struct TpxEnv : FrameEnv {
  TpxEnv() {
    Start();
    Mixture({"67-56-1", "7732-18-5"});  // methanol (1), water (2)
  }
  peq::FileDialogResult Datei(const std::string& name) {
    peq::FileDialogResult r;
    r.cancelled = false;
    r.fileName = (fs::path(dir.path()) / name).string();
    r.fileTitle = name;
    return r;
  }
  // The frame's file dialog (frmCmnDlg) answered with a file of the directory.
  void CmnDlgWaehlt(const std::string& name) {
    ui.modalHandlers[peq::WindowId::frmCmnDlg] = [this, name] {
      f.CmnDlg.Abbruch = false;
      f.CmnDlg.ErgebnisPfad = dir.path();
      f.CmnDlg.ErgebnisDatei = name;
      return true;
    };
  }
};

TEST(TpxEditWindow, NewInputOpensTheWindowAndTypedLinesAreConverted) {
  TpxEnv e;
  e.f.Run(peqtest::C(peq::Cmd::mnuExpInput));
  ASSERT_TRUE(e.f.IsLoaded(peq::WindowId::frmTpxEdit));
  peq::frmTpxEdit& w = e.f.TpxEdit;
  EXPECT_EQ(w.Caption, " Input / Edit batch data");
  EXPECT_EQ(peq::frmTpxEdit::Zeilen(e.s)[0][0], "empty list");
  EXPECT_EQ(w.Kopf, "Add data set #1");
  EXPECT_EQ(w.ZeileText, "Add line #1");
  w.Einheiten_Click(e.s, peq::TpxEinheiten{1, 2, 1});
  EXPECT_EQ(w.EingabeKoepfe()[0], "t/°C");
  EXPECT_EQ(w.EingabeKoepfe()[1], "p/atm");
  EXPECT_EQ(w.EingabeKoepfe()[2], "x1(L)");
  w.y = {"60", "1", "0.25", "0"};
  w.OKinput_Click(e.f);
  ASSERT_EQ(e.s.ExpAnz, 1);
  EXPECT_FLOAT_EQ(e.s.ExpPunkte[1].T, 333.15f);
  EXPECT_FLOAT_EQ(e.s.ExpPunkte[1].p, 101.325f);
  EXPECT_FLOAT_EQ(e.s.ExpPunkte[1].x2L, 0.75f);
  EXPECT_EQ(e.s.ExpPunkte[1].x2V, 0.0f);
  EXPECT_EQ(w.Kopf, "Add data set #2");
  EXPECT_TRUE(e.Enabled(peq::Cmd::mnuExpEdit));
  EXPECT_FALSE(w.cmdFitEnabled);
  EXPECT_FALSE(w.cmdKonsTestEnabled);
  // An unreadable field beeps and takes the focus; a fraction out of range gives the words.
  w.y = {"60", "x", "0.25", "0"};
  w.OKinput_Click(e.f);
  EXPECT_EQ(w.Fokus, 1);
  EXPECT_EQ(e.ui.beeps, 1);
  w.y = {"60", "1", "1.25", "0"};
  w.OKinput_Click(e.f);
  EXPECT_TRUE(e.Shown("Execution not possible", "mole fraction not in the valid range (0 <= x <= 1)"));
  EXPECT_EQ(e.s.ExpAnz, 1);
}

TEST(TpxEditWindow, PasteEraseSaveLoadAndTheQuestionOnClosing) {
  TpxEnv e;
  e.f.Run(peqtest::C(peq::Cmd::mnuExpInput));
  peq::frmTpxEdit& w = e.f.TpxEdit;
  e.ui.clipboard = "333.15\t39.223\t0.1686\t0.5714\r\n333.15\t40.344\t0,1814\t0.5867\r\n333.15\t47.023\t0.2773\t0.6751\r\n";
  w.cmdClipEinfuegen_Click(e.f);
  ASSERT_EQ(e.s.ExpAnz, 3);
  EXPECT_FLOAT_EQ(e.s.ExpPunkte[2].x2L, 0.1814f);
  // Erase: nothing marked, then one line asked and answered Yes.
  w.Markieren(0, 0);
  w.cmdErase_Click(e.f);
  EXPECT_TRUE(e.Shown("WARNING", "No marked item!"));
  w.Grid_Click(e.s, 2, 1);
  EXPECT_EQ(w.y[0], "333.15");
  e.ui.answers.push_back(peq::Answer::No);
  w.cmdErase_Click(e.f);
  EXPECT_TRUE(e.Shown("WARNING", "Line 2 Really delete?"));
  EXPECT_EQ(e.s.ExpAnz, 3);
  w.Markieren(2, 3);
  e.ui.answers.push_back(peq::Answer::Yes);
  w.cmdErase_Click(e.f);
  EXPECT_TRUE(e.Shown("WARNING", "Lines 2 to 3 really delete?"));
  EXPECT_EQ(e.s.ExpAnz, 1);
  // Save through the dialog.
  e.ui.files.push_back(e.Datei("MW.EX5"));
  w.cmdSave_Click(e.f);
  ASSERT_FALSE(e.ui.fileDialogs.empty());
  EXPECT_EQ(e.ui.fileDialogs.back().title, "Save experimental data as ...");
  EXPECT_EQ(e.ui.fileDialogs.back().filter, "Data file (*.EX5)|*.EX5");
  EXPECT_EQ(e.ui.fileDialogs.back().flags, 2623494u);
  EXPECT_FALSE(e.s.ExpUngespeichert);
  EXPECT_NE(Bytes(e.Datei("MW.EX5").fileName).find("\"Methanol\""), std::string::npos);
  // Load it again, then add it.
  e.CmnDlgWaehlt("MW.EX5");
  w.cmdLoad_Click(e.f);
  EXPECT_EQ(e.s.ExpAnz, 1);
  EXPECT_EQ(w.Caption, "File: MW.EX5 experimental data, ");
  w.cmdAdd_Click(e.f);
  EXPECT_EQ(e.s.ExpAnz, 2);
  EXPECT_EQ(w.Caption, "Edit data set #2 (from MW.EX5)");
  // A change, then closing asks once; No closes without saving.
  w.cmdChange12_Click(e.f);
  EXPECT_TRUE(e.s.ExpUngespeichert);
  const std::size_t vorher = e.ui.boxes.size();
  e.ui.answers.push_back(peq::Answer::No);
  w.cmdEsc_Click(e.f);
  ASSERT_EQ(e.ui.boxes.size(), vorher + 1);
  EXPECT_EQ(e.ui.boxes.back().title, " Experimental data not yet saved ");
  EXPECT_EQ(e.ui.boxes.back().text, "Save now?");
  EXPECT_FALSE(e.f.IsLoaded(peq::WindowId::frmTpxEdit));
}

TEST(TpxEditWindow, LoadNeedsTwoComponentsAndPrintGivesTheTable) {
  TpxEnv e;
  e.f.Run(peqtest::C(peq::Cmd::mnuExpInput));
  peq::frmTpxEdit& w = e.f.TpxEdit;
  w.y = {"330", "50", "0.5", "0.7"};
  w.OKinput_Click(e.f);
  w.cmdPrintTpx_Click(e.f);
  ASSERT_EQ(e.ui.printed.size(), 1u);
  EXPECT_NE(e.ui.printed[0].find("xL(2)"), std::string::npos);
  EXPECT_NE(e.ui.printed[0].find("330.00"), std::string::npos);
  e.s.NKomp = 3;
  w.cmdLoad_Click(e.f);
  EXPECT_TRUE(e.Shown("Execution not possible", "possible only for a two-component mixture "));
}

TEST(TpxEditWindow, ThePointsOnTheDiagramAndACurveSavedAsXY) {
  TpxEnv e;
  e.f.Run(peqtest::C(peq::Cmd::mnuExpInput));
  e.ui.clipboard = "333.15\t39.223\t0.1686\t0.5714\n333.15\t47.023\t0.2773\t0.6751\n";
  e.f.TpxEdit.cmdClipEinfuegen_Click(e.f);
  peq::frmGraph2D& g = e.f.Graph2D;
  g.Doc.NoDia = 1;
  g.Doc.T = 333.15;
  EXPECT_EQ(g.zeigeExpPunkte_Click(e.f), 2);
  ASSERT_EQ(g.Doc.ExpSaetze.size(), 1u);
  EXPECT_FLOAT_EQ(g.Doc.ExpSaetze[0].V.x[1], 0.6751f);
  g.Doc.T = 300;
  EXPECT_EQ(g.zeigeExpPunkte_Click(e.f), 0);
  EXPECT_EQ(g.Status, "No experimental points at this temperature");

  g.Doc.Serien[1].x = {0.0f, 0.5f, 1.0f};
  g.Doc.Serien[1].y = {20.0f, 50.0f, 80.0f};
  g.Doc.Serien[1].Legende = "333.15 K  LV";
  e.s.ListTrenner = ";";
  e.ui.files.push_back(e.Datei("C.XY"));
  ASSERT_TRUE(g.cmdSaveCurveAsXY_Click(e.f, 1));
  EXPECT_EQ(Bytes(e.Datei("C.XY").fileName),
            "333.15 K  LV\r\n.0000000E+00;.2000000E+02\r\n.5000000E+00;.5000000E+02\r\n.1000000E+01;.8000000E+02\r\n");
  EXPECT_FALSE(g.cmdSaveCurveAsXY_Click(e.f, 2));
  ASSERT_TRUE(g.cmdClipboard_Click(e.f, 1));
  EXPECT_EQ(e.ui.clipboard, ".0000000E+00\t.2000000E+02\r\n.5000000E+00\t.5000000E+02\r\n.1000000E+01\t.8000000E+02\r\n");
}

TEST(XYEditWindow, LoadManipulateAndDrawOnAFreeDiagram) {
  FrameEnv e;
  e.Start();
  e.f.Run(peqtest::C(peq::Cmd::mnuEditXY));
  ASSERT_TRUE(e.f.IsLoaded(peq::WindowId::frmXYEdit));
  peq::frmManuInput& w = e.f.ManuInput;
  EXPECT_EQ(w.Caption, "Manual data input");
  EXPECT_EQ(w.Zeilen()[0][0], "empty list");
  const std::string f = peqtest::WriteBytes(e.dir.path(), "P.XY", "points\r\n1,5;2\r\n2,5;0\r\n3;4\r\n");
  ASSERT_TRUE(w.Laden(e.f, f));
  EXPECT_EQ(e.s.XYAnz, 3);
  EXPECT_EQ(w.Caption, "loaded:" + f);
  w.optManip = 4;
  w.cmdExecManip_Click(e.f);
  EXPECT_TRUE(e.Shown("Execution not possible", "Action is not possible using the actual data"));
  EXPECT_FLOAT_EQ(w.Liste[2].y, 0.0f);
  w.optManip = 2;
  w.txtW = "1,5";
  w.cmdExecManip_Click(e.f);
  EXPECT_FLOAT_EQ(w.Liste[2].y, 1.5f);
  // Two lines inactive: as a curve one active point is too few.
  w.Markieren(1, 2);
  w.cmdAus_Click(e.f);
  w.AlsPunkte = false;
  w.cmdDrawManu_Click(e.f);
  EXPECT_TRUE(e.Shown("Execution not possible", "at least two active points!"));
  w.AlsPunkte = true;
  w.cmdDrawManu_Click(e.f);
  ASSERT_TRUE(e.f.IsLoaded(peq::WindowId::frmGraph2D));
  EXPECT_EQ(e.f.Graph2D.Doc.NoDia, peq::kNoDiaFreiXY);
  EXPECT_EQ(e.f.Graph2D.Doc.Titel, "points");
  ASSERT_EQ(e.f.Graph2D.Doc.ExpSaetze.size(), 1u);
  EXPECT_FLOAT_EQ(e.f.Graph2D.Doc.ExpSaetze[0].L.x[0], 3.0f);
  // A range of zero width is widened.
  EXPECT_LT(e.f.Graph2D.Doc.Bereich.XMin, 3.0f);
  EXPECT_GT(e.f.Graph2D.Doc.Bereich.XMax, 3.0f);
  // Saved with the tab, the inactive lines are gone after a load.
  w.cmbSep = 2;
  ASSERT_TRUE(w.Speichern(e.f, (fs::path(e.dir.path()) / "Q.XY").string()));
  ASSERT_TRUE(w.Laden(e.f, (fs::path(e.dir.path()) / "Q.XY").string()));
  EXPECT_EQ(e.s.XYAnz, 1);
  // A file that is no XY file: the words under "Error" and an empty list.
  const std::string b = peqtest::WriteBytes(e.dir.path(), "B.XY", std::string("\x01\x02\x03\n\xff\xfe", 6));
  EXPECT_FALSE(w.Laden(e.f, b));
  EXPECT_EQ(e.s.XYAnz, 0);
  EXPECT_EQ(e.ui.boxes.back().title, "Error");
}

// The grid's edit menu: the marked lines copied as x, tab, y, CR LF; the marked cells of the
// marked column set to 0; paste and remove as their buttons; nothing marked says so.
TEST(XYEditWindow, TheGridsEditMenu) {
  FrameEnv e;
  e.Start();
  e.f.Run(peqtest::C(peq::Cmd::mnuEditXY));
  peq::frmManuInput& w = e.f.ManuInput;
  const std::string f = peqtest::WriteBytes(e.dir.path(), "P.XY", "points\r\n1;2\r\n3;4\r\n5;6\r\n");
  ASSERT_TRUE(w.Laden(e.f, f));
  w.mnuKopieren_Click(e.f);
  EXPECT_TRUE(e.Shown("WARNING", "No marked item!"));
  w.Markieren(2, 3);
  w.mnuKopieren_Click(e.f);
  EXPECT_EQ(e.ui.clipboard, "3\t4\r\n5\t6\r\n");
  w.MarkSpalte = 2;
  w.mnuNull_Click(e.f);
  EXPECT_FLOAT_EQ(w.Liste[1].y, 2.0f);
  EXPECT_FLOAT_EQ(w.Liste[2].y, 0.0f);
  EXPECT_FLOAT_EQ(w.Liste[3].y, 0.0f);
  EXPECT_FLOAT_EQ(w.Liste[3].x, 5.0f);
  EXPECT_TRUE(w.XYUngespeichert);
  e.ui.answers.push_back(peq::Answer::Yes);
  w.mnuEntfernen_Click(e.f);
  EXPECT_EQ(e.s.XYAnz, 1);
  EXPECT_EQ(e.ui.boxes.back().text, "Lines 2 to 3 really remove?");
}

}  // namespace
