// Qt tests of the 2D diagram window: the example project loaded through the project dialog, the
// p-x diagram through the menu and "Draw curve now", the chart and its series, the read-out, the
// curve design on a right click, zoom, the export as PNG, SVG, clipboard image and text; and the
// diagram smoke test that saves each kind of diagram as PNG in the build tree
// (scripts/smoke-diagrams runs it on a virtual X server).
#include <QClipboard>
#include <QComboBox>
#include <QDir>
#include <QDoubleSpinBox>
#include <QElapsedTimer>
#include <QFile>
#include <QImage>
#include <QLabel>
#include <QMdiSubWindow>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QStatusBar>
#include <QtCharts/QChart>
#include <QtCharts/QChartView>
#include <QtCharts/QLogValueAxis>
#include <QtCharts/QXYSeries>
#include <cstdio>

#include "ui/cmndlgdialog.h"
#include "ui/curvedesigndialog.h"
#include "ui/graph2dwindow.h"
#include "ui/vmodelldialog.h"
#include "ui_fixture.h"

namespace {

using peq::Cmd;
using peq::WindowId;

QString DiagramDir() {
  QDir d(QStringLiteral(PEQ_BINARY_DIR));
  d.mkpath(QStringLiteral("screenshots/diagrams"));
  return d.filePath(QStringLiteral("screenshots/diagrams"));
}

class Graph2DUi : public peqtest::UiTest {
 protected:
  // The example project ethanol/water (NRTL, ideal gas) through the project dialog; its model
  // window confirmed with "Models OK".
  void LoadExample() {
    Open();
    ASSERT_TRUE(QFile::copy(QStringLiteral(PEQ_SOURCE_DIR "/examples/ethanol-water.PQC"), ProgFile("EW.PQC")));
    answer.onModal = [](QWidget* m) {
      auto* d = qobject_cast<pequi::CmnDlgDialog*>(m);
      if (!d) return false;
      const auto items = d->Files()->findItems(QStringLiteral("EW.PQC"), Qt::MatchExactly);
      if (items.isEmpty()) return false;
      QTest::mouseClick(d->Files()->viewport(), Qt::LeftButton, {}, d->Files()->visualItemRect(items[0]).center());
      QTest::mouseClick(d->OK(), Qt::LeftButton);
      return true;
    };
    A(Cmd::mnuLoadProject)->trigger();
    QApplication::processEvents();
    ASSERT_EQ(win->Sess().NKomp, 2);
    ConfirmModels();
  }
  void ConfirmModels() {
    if (auto* vm = Window<pequi::VModellDialog>(WindowId::frmVModell)) {
      QTest::mouseClick(vm->ModelsOK(), Qt::LeftButton);
      QApplication::processEvents();
    }
  }
  // CO2(1)/n-butane(2) with Peng-Robinson and the van der Waals mixing rule, chosen in the
  // substance and model windows.
  void CO2Butane() {
    Open();
    NextFile(ProgFile("PEQBASE.Q07"));
    A(Cmd::mnuOpenBank)->trigger();
    QApplication::processEvents();
    for (const char* cas : {"124-38-9", "106-97-8"}) {
      F().Stoffwahl.NameCombo = cas;
      F().Stoffwahl.NameCombo_Return(F());
      F().Stoffwahl.cmdRightOne(F());
    }
    F().Stoffwahl.GemischOK(F());
    QApplication::processEvents();
    F().VModell.tabModellKonzept_Click(F(), 1);
    for (int k = 0; k < 4; ++k)
      if (peq::kCEOSCodes[k] == 5) F().VModell.cmbCEOS_Click(F(), k);
    F().VModell.cmbMixRule_Click(F(), 0);
    F().VModell.cmdOKModell(F());
    QApplication::processEvents();
    ASSERT_TRUE(win->Sess().Konzept);
    ASSERT_EQ(win->Sess().EOSModel, 5);
  }
  // The diagram as "Draw curve now" leaves the input window: the frame's diagram hook.
  pequi::Graph2DWindow* DrawNow(int16_t noDia, double T, double p) {
    peq::Session& s = win->Sess();
    s.NoDia = noDia;
    s.IsoArt = (noDia == 4 || noDia == 6 || noDia == 82 || noDia == 83 || noDia == 182) ? 2 : 1;
    s.TIso = T;
    s.PIso = p;
    s.SofortZeichnen = true;
    F().Unload(WindowId::frmGraph2D);
    QApplication::processEvents();
    F().DiagrammRechnen();
    QApplication::processEvents();
    return Window<pequi::Graph2DWindow>(WindowId::frmGraph2D);
  }
  bool SavePng(pequi::Graph2DWindow* w, const char* name) {
    // The diagram is a child of the frame's workspace: its sub-window takes the size.
    if (QMdiSubWindow* sub = win->SubOf(WindowId::frmGraph2D)) {
      win->resize(1240, 800);
      sub->resize(980, 680);
    } else {
      w->resize(980, 680);
    }
    QApplication::processEvents();
    return w->SpeicherePng(QDir(DiagramDir()).filePath(QString::fromLatin1(name)));
  }
};

// The way of a user: graf(0) p-x, the input window left with "Draw curve now", the chart with
// both curves; the time from the click to the drawn diagram.
TEST_F(Graph2DUi, PxThroughTheMenuAndDrawCurveNow) {
  LoadExample();
  ASSERT_TRUE(Reachable(Cmd::graf, 0));
  QElapsedTimer t;
  qint64 ms = -1;
  bool clicked = false;
  answer.onModal = [&](QWidget* m) {
    for (QPushButton* b : m->findChildren<QPushButton*>())
      if (b->text().remove(QLatin1Char('&')) == QStringLiteral("Draw curve now") && b->isVisible()) {
        clicked = true;
        t.start();
        QTest::mouseClick(b, Qt::LeftButton);
        return true;
      }
    return false;
  };
  A(Cmd::graf, 0)->trigger();
  auto* w = Window<pequi::Graph2DWindow>(WindowId::frmGraph2D);
  ASSERT_TRUE(clicked);
  ASSERT_NE(w, nullptr);
  w->View()->viewport()->repaint();
  ms = t.elapsed();
  std::printf("\"Draw curve now\" to the drawn p-x diagram (%d points per curve): %lld ms\n",
              F().Graph2D.Doc.Serien[1].Punkte(), static_cast<long long>(ms));
  EXPECT_EQ(w->GezeichneteSerien(), 2);
  EXPECT_EQ(win->Sess().NoDia, 1);
  EXPECT_LT(ms, 100);
}

TEST_F(Graph2DUi, ChartMirrorsTheDocument) {
  LoadExample();
  auto* w = DrawNow(1, 343.15, 101.325);
  ASSERT_NE(w, nullptr);
  EXPECT_TRUE(w->isVisible());
  EXPECT_EQ(w->GezeichneteSerien(), 2);
  const peq::Graph2DDoc& d = F().Graph2D.Doc;
  ASSERT_NE(w->SerieVon(1), nullptr);
  EXPECT_EQ(w->SerieVon(1)->count(), d.Serien[1].Punkte());
  EXPECT_EQ(w->SerieVon(1)->name(), QStringLiteral("343.15 K  LV"));
  EXPECT_TRUE(w->Chart()->title().startsWith(QString::fromStdString(d.Titel).toHtmlEscaped()));
  EXPECT_EQ(w->cmdTausch()->text(), QStringLiteral("1 - 2"));
  EXPECT_FALSE(F().Graph2D.Kommentar.empty());
  // The comment of the drawing stands in the main window's status line.
  EXPECT_EQ(win->statusBar()->currentMessage(), QString::fromStdString(F().Graph2D.Kommentar));
  // A second temperature: four series.
  win->Sess().TIso = 353.15;
  QTest::mouseClick(w->cmdDraw(), Qt::LeftButton);
  EXPECT_EQ(w->GezeichneteSerien(), 4);
  // Exchange of the components.
  const qreal x0 = w->SerieVon(1)->at(0).x();
  QTest::mouseClick(w->cmdTausch(), Qt::LeftButton);
  EXPECT_EQ(w->cmdTausch()->text(), QStringLiteral("2 - 1"));
  EXPECT_NEAR(w->SerieVon(1)->at(0).x(), 1.0 - x0, 1e-6);
}

TEST_F(Graph2DUi, ReadOutOnMouseAndDesignOnRightClick) {
  LoadExample();
  auto* w = DrawNow(1, 343.15, 101.325);
  ASSERT_NE(w, nullptr);
  w->resize(900, 640);
  QApplication::processEvents();
  const peq::Serie& s = F().Graph2D.Doc.Serien[1];
  const int i = s.Punkte() / 2;
  const QPoint px = w->PixelVon(s.x[static_cast<std::size_t>(i)], s.y[static_cast<std::size_t>(i)]);
  QTest::mouseClick(w->View()->viewport(), Qt::LeftButton, {}, px);
  EXPECT_TRUE(w->StatusLabel()->text().startsWith(QStringLiteral("point x =")));
  EXPECT_TRUE(w->StatusLabel()->text().contains(QStringLiteral("Right-click on a curve")));
  // Right click: the curve design; a user picks the symbol "square" and a width of 3.
  bool designed = false;
  answer.onModal = [&designed](QWidget* m) {
    auto* d = qobject_cast<pequi::CurveDesignDialog*>(m);
    if (!d) return false;
    d->Symbol()->setCurrentIndex(static_cast<int>(peq::Symbol::Quadrat));
    d->Breite()->setValue(3.0);
    designed = true;
    QTest::mouseClick(d->OK(), Qt::LeftButton);
    return true;
  };
  QTest::mouseClick(w->View()->viewport(), Qt::RightButton, {}, px);
  QApplication::processEvents();
  EXPECT_TRUE(designed);
  EXPECT_EQ(s.Stil.Sym, peq::Symbol::Quadrat);
  EXPECT_FLOAT_EQ(s.Stil.Breite, 3.0f);
}

TEST_F(Graph2DUi, ZoomOnARectangleAndBackWithoutVisibleDelay) {
  LoadExample();
  auto* w = DrawNow(1, 343.15, 101.325);
  ASSERT_NE(w, nullptr);
  w->resize(900, 640);
  QApplication::processEvents();
  const peq::Achsenbereich voll = F().Graph2D.Doc.Bereich;
  QTest::mouseClick(w->cmdZoom(), Qt::LeftButton);
  ASSERT_TRUE(w->ZoomModus());
  const QPoint a = w->PixelVon(0.1, voll.YMin + 0.8 * (voll.YMax - voll.YMin));
  const QPoint b = w->PixelVon(0.5, voll.YMin + 0.2 * (voll.YMax - voll.YMin));
  QElapsedTimer t;
  t.start();
  QTest::mousePress(w->View()->viewport(), Qt::LeftButton, {}, a);
  QTest::mouseMove(w->View()->viewport(), b);
  QTest::mouseRelease(w->View()->viewport(), Qt::LeftButton, {}, b);
  w->View()->viewport()->repaint();
  const qint64 ms = t.elapsed();
  std::printf("redraw after zoom: %lld ms\n", static_cast<long long>(ms));
  const peq::Achsenbereich z = F().Graph2D.Doc.Bereich;
  EXPECT_NEAR(z.XMin, 0.1, 0.01);
  EXPECT_NEAR(z.XMax, 0.5, 0.01);
  EXPECT_LT(ms, 100);
  QTest::mouseClick(w->cmdZoomReset(), Qt::LeftButton);
  EXPECT_EQ(F().Graph2D.Doc.Bereich, voll);
}

TEST_F(Graph2DUi, ExportAsPngSvgClipboardImageAndCurveText) {
  LoadExample();
  auto* w = DrawNow(1, 343.15, 101.325);
  ASSERT_NE(w, nullptr);
  const QString png = ProgFile("px.png"), svg = ProgFile("px.svg");
  ASSERT_TRUE(w->SpeicherePng(png));
  ASSERT_TRUE(w->SpeichereSvg(svg));
  QImage img(png);
  EXPECT_FALSE(img.isNull());
  EXPECT_GT(img.width(), 200);
  QFile f(svg);
  ASSERT_TRUE(f.open(QIODevice::ReadOnly));
  const QByteArray text = f.readAll();
  EXPECT_TRUE(text.contains("<svg"));
  EXPECT_TRUE(text.contains("path"));
  w->BildInZwischenablage();
  EXPECT_FALSE(QGuiApplication::clipboard()->image().isNull());
  // One curve as text through the button (the curve drawn last when there is one set).
  F().Graph2D.mnuSubDelKurv_Click(F(), 1);
  w->Render();
  w->findChild<QPushButton*>(QStringLiteral("cmdClipboard"))->click();
  const QString clip = QGuiApplication::clipboard()->text();
  EXPECT_TRUE(clip.startsWith(QString::fromStdString(peq::FormatE7(F().Graph2D.Doc.Serien[2].x[0]) + "\t")));
  EXPECT_EQ(clip.count(QStringLiteral("\r\n")), F().Graph2D.Doc.Serien[2].Punkte());
}

TEST_F(Graph2DUi, LogarithmicAxisAndCoordinatesDialog) {
  LoadExample();
  auto* w = DrawNow(1, 343.15, 101.325);
  ASSERT_NE(w, nullptr);
  w->findChild<QPushButton*>(QStringLiteral("cmdYLog"))->click();
  EXPECT_TRUE(F().Graph2D.Doc.YLog);
  bool logAxis = false;
  for (QAbstractAxis* a : w->Chart()->axes(Qt::Vertical)) logAxis = logAxis || qobject_cast<QLogValueAxis*>(a);
  EXPECT_TRUE(logAxis);
  EXPECT_EQ(w->GezeichneteSerien(), 2);
  w->findChild<QPushButton*>(QStringLiteral("cmdYLog"))->click();
  EXPECT_FALSE(F().Graph2D.Doc.YLog);
  // Coordinates: a refused entry first (min above max), then a good one.
  int runde = 0;
  answer.onModal = [&runde](QWidget* m) {
    if (m->objectName() != QStringLiteral("frmKoord")) return false;
    auto* box = m->findChild<QLineEdit*>(QStringLiteral("txtYMin"));
    auto* ok = m->findChild<QPushButton*>(QStringLiteral("cmdCoord_OK"));
    if (runde == 0) {
      box->setText(QStringLiteral("500"));
      ++runde;
      ok->click();
      return false;  // the dialog comes back with the refusal
    }
    EXPECT_EQ(m->findChild<QLabel*>(QStringLiteral("lblFehler"))->text(),
              QString::fromLatin1(peq::kKoordUngueltig));
    box->setText(QStringLiteral("20"));
    ok->click();
    return true;
  };
  w->findChild<QPushButton*>(QStringLiteral("mnuCoord"))->click();
  QApplication::processEvents();
  EXPECT_EQ(F().Graph2D.Doc.Bereich.YMin, 20.0f);
  EXPECT_EQ(win->Sess().YMin, 20.0f);
}

// ---- the diagram smoke test: each kind of diagram as PNG ----

class DiagramSmoke : public Graph2DUi {};

TEST_F(DiagramSmoke, EthanolWaterDiagramsAsPng) {
  LoadExample();
  struct Fall {
    int16_t noDia;
    double T, p;
    const char* file;
    int curves;
  };
  const Fall faelle[] = {
      {1, 343.15, 101.325, "px_ethanol_water_70C.png", 2},
      {4, 343.15, 101.325, "Tx_ethanol_water_101kPa.png", 2},
      {6, 343.15, 101.325, "xy_isobaric_ethanol_water.png", 1},
      {3, 343.15, 101.325, "xy_isothermal_ethanol_water.png", 1},
      {8, 343.15, 101.325, "activity_coefficients_ethanol_water.png", 2},
      {110, 343.15, 101.325, "gE_ethanol_water.png", 1},
  };
  for (const Fall& c : faelle) {
    auto* w = DrawNow(c.noDia, c.T, c.p);
    ASSERT_NE(w, nullptr) << c.noDia;
    EXPECT_EQ(w->GezeichneteSerien(), c.curves) << c.noDia;
    EXPECT_EQ(F().Graph2D.LetzterFehler, 0) << c.noDia;
    EXPECT_TRUE(SavePng(w, c.file)) << c.file;
    std::printf("%s: %s\n", c.file, F().Graph2D.Kommentar.c_str());
    if (c.noDia == 6) {
      EXPECT_TRUE(win->statusBar()->currentMessage().contains(QStringLiteral("azeotrope")));
    }
  }
  // p-x with a second temperature and the components exchanged.
  auto* w = DrawNow(1, 343.15, 101.325);
  ASSERT_NE(w, nullptr);
  win->Sess().TIso = 363.15;
  QTest::mouseClick(w->cmdDraw(), Qt::LeftButton);
  QTest::mouseClick(w->cmdTausch(), Qt::LeftButton);
  EXPECT_EQ(w->GezeichneteSerien(), 4);
  EXPECT_TRUE(SavePng(w, "px_two_temperatures_exchanged.png"));
  EXPECT_TRUE(w->SpeichereSvg(QDir(DiagramDir()).filePath(QStringLiteral("px_two_temperatures_exchanged.svg"))));
  std::printf("diagrams in %s\n", qPrintable(DiagramDir()));
}

TEST_F(DiagramSmoke, CO2ButanePengRobinsonDiagramsAsPng) {
  CO2Butane();
  struct Fall {
    int16_t noDia;
    double T, p;
    const char* file;
    int curves;
  };
  const Fall faelle[] = {
      {1, 344.26, 101.325, "px_co2_butane_PR.png", 2},
      {181, 344.26, 101.325, "density_co2_butane_PR.png", 2},
      {3, 344.26, 101.325, "xy_isothermal_co2_butane_PR.png", 1},
  };
  for (const Fall& c : faelle) {
    auto* w = DrawNow(c.noDia, c.T, c.p);
    ASSERT_NE(w, nullptr) << c.noDia;
    EXPECT_EQ(w->GezeichneteSerien(), c.curves) << c.noDia;
    EXPECT_TRUE(SavePng(w, c.file)) << c.file;
    std::printf("%s: %s\n", c.file, F().Graph2D.Kommentar.c_str());
  }
}

}  // namespace
