// The walk of a user through the experimental data: the data window from the menu, points pasted
// from the clipboard, saved and loaded again through the dialogs, the example data set of
// water/methanol at 333.15 K loaded, the p-x diagram drawn and the points shown on it, found in
// the chart's series. The diagram is saved as PNG in BUILD/screenshots/expdata/
// (scripts/smoke-expdata runs it on a virtual X server), with the time of drawing the points.
#include <QClipboard>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QGuiApplication>
#include <QListWidget>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QtCharts/QChartView>
#include <QtCharts/QLineSeries>
#include <QTableWidget>
#include <QtCharts/QChart>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <vector>

#include "expdata/tpxdaten.h"

#include "ui/cmndlgdialog.h"
#include "ui/graph2dwindow.h"
#include "ui/tpxeditdialog.h"
#include "ui/vmodelldialog.h"
#include "ui_fixture.h"

namespace {

using peq::Cmd;
using peq::WindowId;

QString ShotDir() {
  QDir d(QStringLiteral(PEQ_BINARY_DIR));
  d.mkpath(QStringLiteral("screenshots/expdata"));
  return d.filePath(QStringLiteral("screenshots/expdata"));
}

class ExpDataUi : public peqtest::UiTest {
 protected:
  // Water (1) and methanol (2) from the bundled database, the models as the window offers them.
  void WaterMethanol() {
    Open();
    NextFile(ProgFile("PEQBASE.Q07"));
    A(Cmd::mnuOpenBank)->trigger();
    QApplication::processEvents();
    for (const char* cas : {"7732-18-5", "67-56-1"}) {
      F().Stoffwahl.NameCombo = cas;
      F().Stoffwahl.NameCombo_Return(F());
      F().Stoffwahl.cmdRightOne(F());
    }
    F().Stoffwahl.GemischOK(F());
    QApplication::processEvents();
    if (auto* vm = Window<pequi::VModellDialog>(WindowId::frmVModell)) {
      QTest::mouseClick(vm->ModelsOK(), Qt::LeftButton);
      QApplication::processEvents();
    }
    ASSERT_EQ(win->Sess().NKomp, 2);
  }
  // The frame's file dialog answered with a file of the program's directory.
  void NextCmnDlg(const QString& name) {
    answer.onModal = [name](QWidget* m) {
      auto* d = qobject_cast<pequi::CmnDlgDialog*>(m);
      if (!d) return false;
      const auto items = d->Files()->findItems(name, Qt::MatchExactly);
      if (items.isEmpty()) return false;
      QTest::mouseClick(d->Files()->viewport(), Qt::LeftButton, {}, d->Files()->visualItemRect(items[0]).center());
      QTest::mouseClick(d->OK(), Qt::LeftButton);
      return true;
    };
  }
};

TEST_F(ExpDataUi, PasteSaveLoadAndThePointsOnThePxDiagram) {
  WaterMethanol();
  ASSERT_TRUE(Reachable(Cmd::mnuExpInput));
  A(Cmd::mnuExpInput)->trigger();
  QApplication::processEvents();
  auto* d = Window<pequi::TpxEditDialog>(WindowId::frmTpxEdit);
  ASSERT_NE(d, nullptr);
  EXPECT_EQ(d->Grid()->item(0, 0)->text(), QStringLiteral("empty list"));

  // Paste three lines.
  QGuiApplication::clipboard()->setText(QStringLiteral("333.15\t39.223\t0.1686\t0.5714\n"
                                                       "333.15\t40.344\t0,1814\t0.5867\n"
                                                       "333.15\t47.023\t0.2773\t0.6751\n"));
  QTest::mouseClick(d->Button("cmdClipEinfuegen"), Qt::LeftButton);
  QApplication::processEvents();
  ASSERT_EQ(win->Sess().ExpAnz, 3);
  EXPECT_EQ(d->Grid()->rowCount(), 3);
  EXPECT_EQ(d->Grid()->item(1, 3)->text(), QStringLiteral("0.1814"));

  // Save.
  NextFile(ProgFile("MINE.EX5"));
  QTest::mouseClick(d->Button("cmdSave"), Qt::LeftButton);
  QApplication::processEvents();
  ASSERT_TRUE(QFile::exists(ProgFile("MINE.EX5")));
  EXPECT_FALSE(win->Sess().ExpUngespeichert);

  // Load the example set of the same pair (18 points at 333.15 K).
  ASSERT_TRUE(QFile::copy(QStringLiteral(PEQ_SOURCE_DIR "/examples/expdata/WATER_METHANOL_333K.EX5"),
                          ProgFile("WATER_METHANOL_333K.EX5")));
  win->Sess().PfadProjekt = QDir(prog.path()).absolutePath().toStdString() + "/";
  NextCmnDlg(QStringLiteral("WATER_METHANOL_333K.EX5"));
  QTest::mouseClick(d->Button("cmdLoad"), Qt::LeftButton);
  QApplication::processEvents();
  ASSERT_EQ(win->Sess().ExpAnz, 18);
  EXPECT_EQ(d->Grid()->rowCount(), 18);
  EXPECT_TRUE(d->windowTitle().startsWith(QStringLiteral("File: WATER_METHANOL_333K.EX5")));
  // The data window as it stands, for the eye.
  if (QMdiSubWindow* sub = win->SubOf(WindowId::frmTpxEdit)) {
    win->resize(1240, 800);
    sub->resize(960, 560);
  }
  QApplication::processEvents();
  EXPECT_TRUE(d->grab().save(QDir(ShotDir()).filePath(QStringLiteral("tpx-data-window.png"))));

  // The p-x diagram at 333.15 K, and the points on it.
  peq::Session& s = win->Sess();
  s.NoDia = 1;
  s.IsoArt = 1;
  s.TIso = 333.15;
  s.PIso = 101.325;
  s.SofortZeichnen = true;
  F().DiagrammRechnen();
  QApplication::processEvents();
  auto* g = Window<pequi::Graph2DWindow>(WindowId::frmGraph2D);
  ASSERT_NE(g, nullptr);
  if (QMdiSubWindow* sub = win->SubOf(WindowId::frmGraph2D)) {
    win->resize(1240, 800);
    sub->resize(980, 680);
  }
  QApplication::processEvents();
  QAction* zeige = g->findChild<QAction*>(QStringLiteral("zeigeExpPunkte"));
  ASSERT_NE(zeige, nullptr);
  QElapsedTimer t;
  t.start();
  zeige->trigger();
  g->View()->viewport()->repaint();
  const qint64 ms = t.elapsed();
  std::printf("18 experimental points drawn on the p-x diagram: %lld ms\n", static_cast<long long>(ms));
  int gefunden = 0;
  for (QAbstractSeries* a : g->Chart()->series()) {
    auto* sc = qobject_cast<QLineSeries*>(a);
    if (!sc || sc->count() != 18) continue;
    ++gefunden;
    bool p39 = false;
    for (const QPointF& p : sc->points()) p39 = p39 || std::abs(p.y() - 39.223) < 1e-3;
    EXPECT_TRUE(p39);
  }
  EXPECT_EQ(gefunden, 2);  // x(L) and x(V)
  EXPECT_TRUE(g->SpeicherePng(QDir(ShotDir()).filePath(QStringLiteral("water-methanol-333K-px.png"))));
}

// 10,000 points of one isotherm: the EX5 file loaded and drawn on the p-x diagram; the time from
// the load to the repainted chart is printed (the smoke script shows it).
TEST_F(ExpDataUi, TenThousandPointsLoadedAndDrawn) {
  WaterMethanol();
  std::vector<peq::ExpPunkt> p(10000);
  for (int i = 0; i < 10000; ++i) {
    const float x = static_cast<float>(i + 1) / 10001.0f;  // x(V) never 0: every row draws both points
    p[static_cast<std::size_t>(i)] = peq::ExpPunkt{0, 333.15f, 20.0f + 60.0f * x, x, x * (2.0f - x)};
  }
  const std::string file = ProgFile("BIG.EX5").toStdString();
  {
    std::ofstream out(file, std::ios::binary);
    out << peq::Ex5Text("7732-18-5", "Water", "67-56-1", "Methanol", "10000 points", "", p.data(), 10000);
  }
  peq::Session& s = win->Sess();
  s.NoDia = 1;
  s.IsoArt = 1;
  s.TIso = 333.15;
  s.PIso = 101.325;
  s.SofortZeichnen = true;
  F().DiagrammRechnen();
  QApplication::processEvents();
  auto* g = Window<pequi::Graph2DWindow>(WindowId::frmGraph2D);
  ASSERT_NE(g, nullptr);
  QElapsedTimer t;
  t.start();
  ASSERT_TRUE(peq::ExpDateiLaden(s, false, file, nullptr, nullptr));
  const qint64 geladen = t.elapsed();
  g->findChild<QAction*>(QStringLiteral("zeigeExpPunkte"))->trigger();
  g->View()->viewport()->repaint();
  const qint64 ms = t.elapsed();
  std::printf("10000 experimental points: loaded in %lld ms, loaded and drawn in %lld ms\n",
              static_cast<long long>(geladen), static_cast<long long>(ms));
  int gross = 0;
  for (QAbstractSeries* a : g->Chart()->series())
    if (auto* sc = qobject_cast<QLineSeries*>(a); sc && sc->count() == 10000) ++gross;
  EXPECT_EQ(gross, 2);
}

}  // namespace
