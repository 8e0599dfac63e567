// Qt tests of the 3D diagram window: the example project loaded through the project dialog, the
// surface items of the menu reachable once the models are accepted, the window with its bound
// labels, "Draw surface" filling the Q3DSurface, and the refusal when the chart cannot be
// created. Graph3DSmoke saves each surface of ethanol/water as PNG through the chart's own
// renderer in the build tree (scripts/smoke-diagrams runs it on a virtual X server) and prints
// the time from the end of a 100 x 100 calculation to the surface on screen.
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QImage>
#include <QLabel>
#include <QListWidget>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QSet>
#include <QSpinBox>
#include <QtDataVisualization/Q3DSurface>
#include <cstdio>

#include "ui/cmndlgdialog.h"
#include "ui/graph3dwindow.h"
#include "ui/vmodelldialog.h"
#include "ui_fixture.h"

namespace {

using peq::Cmd;
using peq::WindowId;

QString SurfaceDir() {
  QDir d(QStringLiteral(PEQ_BINARY_DIR));
  d.mkpath(QStringLiteral("screenshots/surfaces"));
  return d.filePath(QStringLiteral("screenshots/surfaces"));
}

// Colours in the image, counted on a coarse raster: a blank image has one or two.
int Farben(const QImage& img) {
  QSet<QRgb> c;
  for (int y = 0; y < img.height(); y += 7)
    for (int x = 0; x < img.width(); x += 7) c.insert(img.pixel(x, y));
  return static_cast<int>(c.size());
}

class Graph3DUi : public peqtest::UiTest {
 protected:
  // The surface item i of the menu; nullptr when the window layer refused the chart.
  pequi::Graph3DWindow* Oeffne(int16_t i) {
    answer.boxes.clear();
    A(Cmd::mnu3DSub, i)->trigger();
    QApplication::processEvents();
    return Window<pequi::Graph3DWindow>(WindowId::frmGraph3D);
  }
  void Zeichne(pequi::Graph3DWindow* w, int n) {
    w->findChild<QSpinBox*>(QStringLiteral("txtNX"))->setValue(n);
    w->findChild<QSpinBox*>(QStringLiteral("txtNY"))->setValue(n);
    QTest::mouseClick(w->cmdDraw(), Qt::LeftButton);
    QApplication::processEvents();
  }
  bool Refused() const {
    for (const auto& b : answer.boxes)
      if (b.title == QStringLiteral("Execution not possible") &&
          b.text.startsWith(QStringLiteral("The 3D-graph module olch3x8.ocx was not registrated properly")))
        return true;
    return false;
  }
};

TEST_F(Graph3DUi, SurfaceItemsOpenTheWindowOrAreRefusedWithTheBox) {
  LoadEthanolWater();
  for (int16_t i : {0, 1, 2, 3, 5, 6, 7, 8}) EXPECT_TRUE(Reachable(Cmd::mnu3DSub, i)) << i;
  auto* w = Oeffne(0);
  if (!w) {
    // No OpenGL on this display: the box, and no window left behind.
    EXPECT_TRUE(Refused());
    EXPECT_FALSE(F().IsLoaded(WindowId::frmGraph3D));
    GTEST_SKIP() << "no OpenGL context for Q3DSurface on this platform";
  }
  EXPECT_FALSE(Refused());
  EXPECT_EQ(w->Surface()->title(), QStringLiteral("p = Fu(x2(L), T)"));
  EXPECT_EQ(w->findChildren<QLabel*>().size() >= 6, true);
  Zeichne(w, 12);
  EXPECT_TRUE(F().Graph3D.Gezeichnet);
  EXPECT_EQ(w->GezeigteZeilen(), 12);
  EXPECT_EQ(w->GezeigteSpalten(), 12);
  // Saved as *.oc3 and loaded back into the window.
  const float z = F().Graph3D.ResFeld(4, 4);
  NextFile(ProgFile("S.oc3"));
  QTest::mouseClick(w->findChild<QPushButton*>(QStringLiteral("mnuSaveOC3")), Qt::LeftButton);
  QApplication::processEvents();
  ASSERT_TRUE(QFile::exists(ProgFile("S.oc3")));
  F().Graph3D.ResFeld(4, 4) = 0;
  answer.boxes.clear();
  NextFile(ProgFile("S.oc3"));
  QTest::mouseClick(w->findChild<QPushButton*>(QStringLiteral("mnuLoadOC3")), Qt::LeftButton);
  QApplication::processEvents();
  ASSERT_FALSE(answer.boxes.empty());
  EXPECT_EQ(answer.boxes[0].title, QStringLiteral("Single Note"));
  EXPECT_EQ(F().Graph3D.ResFeld(4, 4), z);
  EXPECT_EQ(w->GezeigteZeilen(), 12);
}

class Graph3DSmoke : public Graph3DUi {};

TEST_F(Graph3DSmoke, EthanolWaterSurfacesAsPng) {
  LoadEthanolWater();
  win->Sess().TOffsetOut = 273.15;
  struct Fall {
    int16_t item;
    const char* file;
  };
  const Fall faelle[] = {{0, "0_p_x2_T.png"},        {1, "1_T_x2_p.png"},       {2, "2_y2_x2_T.png"},
                         {3, "3_y2_x2_p.png"},       {5, "4_gE_x2_T.png"},      {6, "5_gM_x2_T.png"},
                         {7, "6_hE_x2_T.png"},       {8, "7_TsE_x2_T.png"}};
  for (const Fall& c : faelle) {
    auto* w = Oeffne(c.item);
    if (!w) GTEST_SKIP() << "no OpenGL context for Q3DSurface on this platform";
    if (QMdiSubWindow* sub = win->SubOf(WindowId::frmGraph3D)) {
      win->resize(1240, 800);
      sub->resize(980, 700);
    }
    Zeichne(w, 40);
    ASSERT_TRUE(F().Graph3D.Gezeichnet) << c.file;
    EXPECT_EQ(F().Graph3D.Loecher, 0) << c.file;
    const QString file = QDir(SurfaceDir()).filePath(QString::fromLatin1(c.file));
    ASSERT_TRUE(w->SpeicherePng(file)) << c.file;
    EXPECT_GT(Farben(QImage(file)), 50) << c.file;
    std::printf("%s: %d holes\n", c.file, F().Graph3D.Loecher);
  }
  // 100 x 100: from the end of the calculation to the surface handed over and rendered once.
  auto* w = Oeffne(0);
  ASSERT_NE(w, nullptr);
  Zeichne(w, 100);
  QElapsedTimer t;
  t.start();
  const QImage img = w->Bild(QSize(900, 700));
  const double renderMs = static_cast<double>(t.nsecsElapsed()) / 1e6;
  EXPECT_FALSE(img.isNull());
  std::printf("100 x 100: data to the chart %.1f ms, first rendering %.1f ms\n", w->ZeichenMs(), renderMs);
  std::printf("surfaces in %s\n", qPrintable(SurfaceDir()));
}

}  // namespace
