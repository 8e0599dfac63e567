// The walk of a user through the markers and files of a drawn p-x diagram: each marker from the
// "Markers" menu, the point calculator, the diagram saved and loaded through the file dialogs,
// the images (PNG, BMP, SVG, PDF), the vector image on the clipboard, printing to a PDF file and
// the CSV file of all curves. The smoke run (scripts/smoke-diagrams) keeps its screenshot.
#include <QAction>
#include <QClipboard>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMdiSubWindow>
#include <QMimeData>
#include <QPrinter>
#include <QPushButton>
#include <QXmlStreamReader>
#include <QtCharts/QXYSeries>

#include "ui/cmndlgdialog.h"
#include "ui/graph2dwindow.h"
#include "ui/graphcalcdialog.h"
#include "ui/vmodelldialog.h"
#include "ui_fixture.h"
#include "windows/graph2dmarker.h"

namespace {

using peq::Cmd;
using peq::WindowId;

QByteArray Bytes(const QString& file) {
  QFile f(file);
  if (!f.open(QIODevice::ReadOnly)) return {};
  return f.readAll();
}

class MarkerWalk : public peqtest::UiTest {
 protected:
  pequi::Graph2DWindow* DrawNow(int16_t noDia, double T, double p) {
    peq::Session& s = win->Sess();
    s.NoDia = noDia;
    s.IsoArt = noDia == 4 ? 2 : 1;
    s.TIso = T;
    s.PIso = p;
    s.SofortZeichnen = true;
    F().DiagrammRechnen();
    QApplication::processEvents();
    auto* w = Window<pequi::Graph2DWindow>(WindowId::frmGraph2D);
    if (w) {
      if (QMdiSubWindow* sub = win->SubOf(WindowId::frmGraph2D)) {
        win->resize(1240, 800);
        sub->resize(1100, 680);
      }
      QApplication::processEvents();
    }
    return w;
  }
  void Trigger(pequi::Graph2DWindow* w, const char* name) {
    auto* a = w->findChild<QAction*>(QString::fromLatin1(name));
    ASSERT_NE(a, nullptr) << name;
    a->trigger();
    QApplication::processEvents();
  }
  // The file the next file dialog of the window layer answers with.
  void NextPath(const QString& file) { NextFile(file); }
};

TEST_F(MarkerWalk, PxDiagramWithEveryMarkerSavedLoadedAndExported) {
  LoadEthanolWater();
  auto* w = DrawNow(1, 343.15, 101.325);
  ASSERT_NE(w, nullptr);
  ASSERT_EQ(w->GezeichneteSerien(), 2);
  // The menu offers the markers of a p-x diagram.
  ASSERT_NE(w->mnuMarker(), nullptr);
  w->mnuMarker()->menu()->popup(QPoint(0, 0));
  QApplication::processEvents();
  EXPECT_TRUE(w->findChild<QAction*>(QStringLiteral("mnuMarkPnp"))->isVisible());
  EXPECT_FALSE(w->findChild<QAction*>(QStringLiteral("mnuMarkTcr"))->isVisible());
  w->mnuMarker()->menu()->hide();

  Trigger(w, "mnuMarkPcr");
  Trigger(w, "mnuMarkPnp");
  EXPECT_NE(w->SerieVon(peq::kSeriePcr), nullptr);
  ASSERT_NE(w->SerieVon(peq::kSerieNormalP), nullptr);
  EXPECT_FLOAT_EQ(static_cast<float>(w->SerieVon(peq::kSerieNormalP)->at(0).y()), 101.325f);
  // Normal-p lies above the vapour pressures at 343 K: its label shows once the range holds it;
  // the critical pressures stay outside.
  EXPECT_EQ(w->MarkerLabelsShown(), 0);
  std::string meldung;
  ASSERT_TRUE(F().Graph2D.cmdCoord_OK(F(), peq::Achsenbereich{0, 1, 0, 150}, meldung)) << meldung;
  w->Render();
  QApplication::processEvents();
  EXPECT_EQ(w->MarkerLabelsShown(), 1);
  // Ethanol/water has no mixing gap: the gap lines are refused with their words.
  answer.boxes.clear();
  Trigger(w, "mnuMarkML");
  ASSERT_FALSE(answer.boxes.empty());
  EXPECT_EQ(answer.boxes.back().title, QStringLiteral("Execution not possible"));
  EXPECT_EQ(answer.boxes.back().text, QStringLiteral("No mixing gap calculated!"));
  Trigger(w, "mnuMarky1");
  Trigger(w, "mnuAddDiagonale");
  EXPECT_NE(w->SerieVon(peq::kSerieDiagonale), nullptr);

  // The point calculator at x2 = 0.4.
  QTest::mouseClick(w->cmdGraphCalc(), Qt::LeftButton);
  QApplication::processEvents();
  auto* calc = Window<pequi::GraphCalcDialog>(WindowId::frmGraphCalc);
  ASSERT_NE(calc, nullptr);
  calc->txtX()->setText(QStringLiteral("0.4"));
  QTest::mouseClick(calc->cmdCalc(), Qt::LeftButton);
  QApplication::processEvents();
  auto* y1 = calc->findChild<QLineEdit*>(QStringLiteral("txtY1"));
  ASSERT_NE(y1, nullptr);
  EXPECT_FALSE(y1->text().isEmpty());
  EXPECT_NE(y1->text(), QStringLiteral("  !  "));
  calc->close();
  QApplication::processEvents();

  // Save, delete everything, load: the diagram is back.
  const QString oc2 = ProgFile("walk.oc2");
  const peq::Graph2DDoc before = F().Graph2D.Doc;
  NextPath(oc2);
  Trigger(w, "mnuSaveOC2");
  ASSERT_TRUE(QFile::exists(oc2));
  const QByteArray saved = Bytes(oc2);
  EXPECT_TRUE(saved.startsWith("{\n \"format\": \"PEQ diagram\",\n \"version\": 1,\n \"kind\": \"2d\""));
  F().Graph2D.mnuDelTotal_Click(F());
  w->Render();
  EXPECT_EQ(w->GezeichneteSerien(), 0);
  answer.boxes.clear();
  NextPath(oc2);
  Trigger(w, "mnuLoadOC2");
  ASSERT_FALSE(answer.boxes.empty());
  EXPECT_EQ(answer.boxes.front().title, QStringLiteral("Single Note"));
  EXPECT_EQ(w->GezeichneteSerien(), 6);  // two curves, pcr, normal p, y = 1, diagonal
  EXPECT_EQ(F().Graph2D.Doc.Serien[1].x, before.Serien[1].x);
  EXPECT_EQ(F().Graph2D.Doc.MarkerLabels, before.MarkerLabels);

  // Images: PNG, BMP, SVG (parses as XML), PDF (starts with its header).
  const QDir dir(prog.path());
  ASSERT_TRUE(w->SpeichereBild(dir.filePath(QStringLiteral("walk.png"))));
  ASSERT_TRUE(w->SpeichereBild(dir.filePath(QStringLiteral("walk.bmp"))));
  ASSERT_TRUE(w->SpeichereBild(dir.filePath(QStringLiteral("walk.svg"))));
  ASSERT_TRUE(w->SpeichereBild(dir.filePath(QStringLiteral("walk.pdf"))));
  const QImage png(dir.filePath(QStringLiteral("walk.png")));
  EXPECT_GT(png.width(), 400);
  const QImage bmp(dir.filePath(QStringLiteral("walk.bmp")));
  EXPECT_EQ(bmp.size(), png.size());
  EXPECT_TRUE(Bytes(dir.filePath(QStringLiteral("walk.bmp"))).startsWith("BM"));
  QXmlStreamReader xml(Bytes(dir.filePath(QStringLiteral("walk.svg"))));
  int elements = 0;
  while (!xml.atEnd())
    if (xml.readNext() == QXmlStreamReader::StartElement) ++elements;
  EXPECT_FALSE(xml.hasError()) << xml.errorString().toStdString();
  EXPECT_GT(elements, 20);
  const QByteArray pdf = Bytes(dir.filePath(QStringLiteral("walk.pdf")));
  EXPECT_TRUE(pdf.startsWith("%PDF-"));
  EXPECT_GT(pdf.size(), 2000);

  // The vector image on the clipboard, with a bitmap beside it.
  w->VektorInZwischenablage();
  const QMimeData* mime = QGuiApplication::clipboard()->mimeData();
  ASSERT_NE(mime, nullptr);
  EXPECT_TRUE(mime->data(QStringLiteral("image/svg+xml")).contains("<svg"));
  EXPECT_TRUE(mime->hasImage());

  // Printing, with a PDF file as the printer.
  QPrinter printer(QPrinter::HighResolution);
  printer.setOutputFormat(QPrinter::PdfFormat);
  printer.setOutputFileName(dir.filePath(QStringLiteral("print.pdf")));
  ASSERT_TRUE(w->Drucke(printer));
  EXPECT_TRUE(Bytes(dir.filePath(QStringLiteral("print.pdf"))).startsWith("%PDF-"));

  // All curves as one CSV file.
  const QString csv = ProgFile("walk.csv");
  NextPath(csv);
  Trigger(w, "mnuCsvAlle");
  const QByteArray c = Bytes(csv);
  EXPECT_TRUE(c.startsWith("343.15 K  LV x;343.15 K  LV y;343.15 K  VL x;343.15 K  VL y\r\n")) << c.left(80).toStdString();
  EXPECT_GT(c.count('\n'), 100);
}

TEST_F(MarkerWalk, SmokeScreenshotOfTheMarkersOnATxDiagram) {
  LoadEthanolWater();
  win->Sess().TOffsetOut = 0;
  auto* w = DrawNow(4, 350, 101.325);
  ASSERT_NE(w, nullptr);
  Trigger(w, "mnuMarkTcr");
  std::string m;
  ASSERT_TRUE(F().Graph2D.cmdCoord_OK(F(), peq::Achsenbereich{0, 1, 340, 660}, m)) << m;
  w->Render();
  QApplication::processEvents();
  EXPECT_EQ(w->MarkerLabelsShown(), 2);
  QDir d(QStringLiteral(PEQ_BINARY_DIR));
  d.mkpath(QStringLiteral("screenshots/diagrams"));
  EXPECT_TRUE(w->SpeicherePng(d.filePath(QStringLiteral("screenshots/diagrams/markers-tx.png"))));
}

}  // namespace
