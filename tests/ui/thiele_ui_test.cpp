// The way of a user through the McCabe-Thiele design: the menu, the pressure window left with
// "Continue >", the x-y diagram with the design window above it, the exchange of the components,
// the design typed in and calculated, the steps on the chart, the record written and read back.
// The smoke script takes a screenshot of the diagram with the steps (ThieleSmoke).
#include <QCheckBox>
#include <QClipboard>
#include <QPainter>
#include <QPixmap>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QtCharts/QChartView>
#include <QtCharts/QXYSeries>
#include <cstdio>

#include "ui/cmndlgdialog.h"
#include "ui/distprotokolldialog.h"
#include "ui/graph2dwindow.h"
#include "ui/thieledialog.h"
#include "ui/vmodelldialog.h"
#include "ui_fixture.h"
#include "windows/distprotokoll.h"

namespace {

using peq::Cmd;
using peq::WindowId;

class ThieleUi : public peqtest::UiTest {
 protected:
  // mnuThiele through the menu, the pressure window left with "Continue >".
  void OpenThiele() {
    bool clicked = false;
    answer.onModal = [&clicked](QWidget* m) {
      for (QPushButton* b : m->findChildren<QPushButton*>())
        if (b->text().remove(QLatin1Char('&')).trimmed() == QStringLiteral("Continue >") && b->isVisible()) {
          clicked = true;
          QTest::mouseClick(b, Qt::LeftButton);
          return true;
        }
      return false;
    };
    ASSERT_TRUE(Reachable(Cmd::mnuThiele));
    A(Cmd::mnuThiele)->trigger();
    QApplication::processEvents();
    ASSERT_TRUE(clicked);
  }
  void Type(QLineEdit* e, const char* text) {
    e->setFocus();
    e->selectAll();
    QTest::keyClick(e, Qt::Key_Delete);
    peqtest::TypeText(e, QString::fromLatin1(text));
  }
  // Exchanges the components with the diagram's button 1<=>2.
  void Tausch(pequi::Graph2DWindow* g) {
    for (QPushButton* b : g->findChildren<QPushButton*>())
      if (b->objectName() == QStringLiteral("cmdTausch")) {
        QTest::mouseClick(b, Qt::LeftButton);
        QApplication::processEvents();
        return;
      }
    F().Graph2D.cmdTausch_Click(F());  // the window names its button otherwise
    QApplication::processEvents();
  }
  // The design: ethanol on the axis, 0.8 at the top, 0.3 feed, 0.05 bottom, RR 3.
  pequi::ThieleDialog* Design(qint64* ms = nullptr) {
    auto* d = Window<pequi::ThieleDialog>(WindowId::frmThieleMcCabe);
    if (!d) return nullptr;
    Type(d->X(0), "0.8");
    Type(d->X(1), "0.05");
    Type(d->X(2), "0.3");
    Type(d->RR(), "3");
    QElapsedTimer t;
    t.start();
    QTest::mouseClick(d->Calc(), Qt::LeftButton);
    if (auto* g = Window<pequi::Graph2DWindow>(WindowId::frmGraph2D)) g->View()->viewport()->repaint();
    if (ms) *ms = t.elapsed();
    QApplication::processEvents();
    return d;
  }
};

TEST_F(ThieleUi, MenuDialogStepsAndRecordReadBack) {
  LoadEthanolWater();
  OpenThiele();
  auto* g = Window<pequi::Graph2DWindow>(WindowId::frmGraph2D);
  ASSERT_NE(g, nullptr);
  EXPECT_EQ(win->Sess().NoDia, 6);
  EXPECT_GT(F().Graph2D.Doc.Serien[1].Punkte(), 50);  // the x-y curve stands
  auto* d = Window<pequi::ThieleDialog>(WindowId::frmThieleMcCabe);
  ASSERT_NE(d, nullptr);
  EXPECT_TRUE(d->isVisible());
  EXPECT_TRUE(d->windowFlags() & Qt::WindowStaysOnTopHint);
  EXPECT_EQ(d->RR()->text(), QStringLiteral(" 1E+10"));
  EXPECT_EQ(d->RRMin()->text(), QStringLiteral(" ?"));
  for (const auto& b : answer.boxes) EXPECT_EQ(b.text.indexOf(QStringLiteral("not yet part")), -1) << b.text.toStdString();

  // On the water axis a top of 0.95 lies beyond the azeotrope: the box, and no steps.
  Type(d->X(0), "0.95");
  QTest::mouseClick(d->Calc(), Qt::LeftButton);
  QApplication::processEvents();
  ASSERT_FALSE(answer.boxes.empty());
  EXPECT_EQ(answer.boxes.back().title, QStringLiteral("Execution not possible"));
  EXPECT_TRUE(answer.boxes.back().text.startsWith(
      QStringLiteral("Between top and bottom concentration may not be an azeotropic point situated!")));
  EXPECT_EQ(g->SerieVon(peq::kSerieStufen), nullptr);

  Tausch(g);
  ASSERT_EQ(win->Sess().Komp1, 2);
  const std::size_t boxesBefore = answer.boxes.size();
  qint64 ms = 0;
  d = Design(&ms);
  ASSERT_NE(d, nullptr);
  EXPECT_EQ(answer.boxes.size(), boxesBefore);
  const int punkte = F().Graph2D.Doc.Serien[peq::kSerieStufen].Punkte();
  std::printf("\"calculate\" to the drawn steps (%d points): %lld ms\n", punkte, static_cast<long long>(ms));
  EXPECT_GT(punkte, 6);
  EXPECT_EQ(punkte % 3, 0);
  QXYSeries* steps = g->SerieVon(peq::kSerieStufen);
  ASSERT_NE(steps, nullptr);
  EXPECT_EQ(steps->count(), punkte);
  EXPECT_TRUE(d->Boeden1()->text().endsWith(QStringLiteral(" th. lates (UC)")));
  EXPECT_TRUE(d->Boeden2()->text().endsWith(QStringLiteral(" th. plates (LC)")));
  EXPECT_NE(d->RRMin()->text(), QStringLiteral(" ?"));
  EXPECT_LT(ms, 100);

  // The record: opened from the dialog, one row written, the file read back.
  QTest::mouseClick(d->Record(), Qt::LeftButton);
  QApplication::processEvents();
  auto* r = Window<pequi::DistProtokollDialog>(WindowId::frmDistProtokoll);
  ASSERT_NE(r, nullptr);
  QTest::mouseClick(r->Protokoll(), Qt::LeftButton);
  QApplication::processEvents();
  EXPECT_EQ(r->Rows()->text(), QStringLiteral("1"));
  const QString datei = QString::fromStdString(F().DistProtokoll.P.ProtokollDatei);
  QTest::mouseClick(r->OpenNew(), Qt::LeftButton);
  QApplication::processEvents();
  QFile f(datei);
  ASSERT_TRUE(f.open(QIODevice::ReadOnly)) << datei.toStdString();
  const QString text = QString::fromUtf8(f.readAll());
  EXPECT_TRUE(text.startsWith(QStringLiteral("PEQ: protocol of a distillation calculation, ")));
  EXPECT_TRUE(text.contains(QStringLiteral("\r\nMcCabe-Thiele design method\r\n")));
  EXPECT_TRUE(text.contains(QStringLiteral("1;Ethanol;")));
  EXPECT_TRUE(text.contains(QStringLiteral("\r\n1;3;")));  // row 1, RR 3
  EXPECT_TRUE(text.contains(QStringLiteral(";0.3;0.7;0.05;0.95;0.8;0.2;")));  // feed, bottom, top
  EXPECT_TRUE(QApplication::clipboard()->text().startsWith(QStringLiteral("1\t3\t")));
}

TEST_F(ThieleUi, ThieleSmokeScreenshot) {
  LoadEthanolWater();
  OpenThiele();
  auto* g = Window<pequi::Graph2DWindow>(WindowId::frmGraph2D);
  ASSERT_NE(g, nullptr);
  Tausch(g);
  ASSERT_NE(Design(), nullptr);
  if (QMdiSubWindow* sub = win->SubOf(WindowId::frmGraph2D)) {
    win->resize(1240, 800);
    sub->resize(980, 680);
  }
  QApplication::processEvents();
  QDir dir(QStringLiteral(PEQ_BINARY_DIR));
  dir.mkpath(QStringLiteral("screenshots/diagrams"));
  EXPECT_TRUE(g->SpeicherePng(dir.filePath(QStringLiteral("screenshots/diagrams/mccabe-thiele.png"))));
  // The whole frame with the design window above the diagram.
  QPixmap frame = win->grab();
  if (auto* d = Window<pequi::ThieleDialog>(WindowId::frmThieleMcCabe)) {
    QPixmap dp = d->grab();
    QPainter p(&frame);
    p.drawPixmap(frame.width() - dp.width() - 10, 60, dp);
  }
  EXPECT_TRUE(frame.save(dir.filePath(QStringLiteral("screenshots/diagrams/mccabe-thiele-frame.png"))));
}

}  // namespace
