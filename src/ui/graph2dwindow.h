// The 2D diagram window: renders the document of frmGraph2D with Qt Charts and forwards the
// user's actions (draw, exchange, coordinates, logarithmic axes, zoom, delete, read-out, curve
// design, image and text export) to the window state.
#pragma once

#include <QPointer>
#include <QString>
#include <array>
#include <vector>

#include "ui/statedialog.h"
#include "windows/graph2d.h"

class QAbstractAxis;
class QGraphicsSimpleTextItem;
class QHBoxLayout;
class QLabel;
class QMenu;
class QLineSeries;
class QPushButton;
class QToolButton;
class QXYSeries;
class QChart;
class QChartView;
class QPrinter;

namespace pequi {

class Graph2DChartView;

class Graph2DWindow : public StateDialog {
  Q_OBJECT
 public:
  Graph2DWindow(peq::mdiPEQ& f, peq::frmGraph2D& g, QWidget* parent);
  ~Graph2DWindow() override;
  void Render() override;

  QPushButton* cmdDraw() const { return cmdDraw_; }
  QPushButton* cmdTausch() const { return cmdTausch_; }
  QPushButton* cmdZoom() const { return cmdZoom_; }
  QPushButton* cmdZoomReset() const { return cmdZoomReset_; }
  QPushButton* mnuDelete() const { return mnuDelete_; }
  QPushButton* mnuBild() const { return mnuBild_; }
  QChart* Chart() const { return chart_; }
  QChartView* View() const;
  QLabel* StatusLabel() const { return lblStatus_; }
  // The Qt series that show slot k (1..40); nullptr when it shows nothing.
  QXYSeries* SerieVon(int slot) const;
  // Number of series in the chart that hold points.
  int GezeichneteSerien() const;

  // Image export: PNG or SVG file, the chart as image to the clipboard. false on failure.
  bool SpeicherePng(const QString& file);
  bool SpeichereSvg(const QString& file);
  void BildInZwischenablage();
  // Further images: BMP and PDF files, the chart as a vector image (SVG) with a bitmap beside it
  // to the clipboard, and the chart on a printer (a PDF file when the printer says so).
  bool SpeichereBmp(const QString& file);
  bool SpeicherePdf(const QString& file);
  void VektorInZwischenablage();
  bool Drucke(QPrinter& printer);
  // cmdPrint: the black-chart question, the platform's print dialog, the print.
  void cmdPrint();
  // Writes the image file of the chosen type (by the file's extension).
  bool SpeichereBild(const QString& file);
  QPushButton* mnuMarker() const { return mnuMarker_; }
  QPushButton* mnuDatei() const { return mnuDatei_; }
  QPushButton* cmdGraphCalc() const { return cmdGraphCalc_; }
  // The chart labels of the markers now shown.
  int MarkerLabelsShown() const;

  // Mouse at a pixel of the chart view: the series and point (1-based) nearest to it within a
  // few pixels; false when none is near.
  bool PunktBei(const QPoint& pos, int& serie, int& punkt) const;
  // Pixel of a data point in the chart view.
  QPoint PixelVon(double x, double y) const;

  // Actions of the chart view.
  void MausBewegt(const QPoint& pos);
  void MausKlick(const QPoint& pos, Qt::MouseButton button);
  void ZoomRechteck(const QPoint& a, const QPoint& b);
  bool ZoomModus() const { return zoomModus_; }

 protected:
  void Cancel() override;

 private:
  void BuildSeries();
  void RenderAxes();
  void RenderSeries();
  void RenderLabels();
  void Kurvendesign(int serie);
  void Koordinaten();
  void BildDatei();
  void KurveInZwischenablage();

  peq::frmGraph2D& g_;
  QChart* chart_ = nullptr;
  Graph2DChartView* view_ = nullptr;
  QAbstractAxis* xAxis_ = nullptr;
  QAbstractAxis* yAxis_ = nullptr;
  bool xLogShown_ = false, yLogShown_ = false;
  std::array<QLineSeries*, peq::kSerienAnz + 1> serien_{};
  std::vector<QLineSeries*> expSerien_;
  std::array<QGraphicsSimpleTextItem*, peq::kSerienAnz + 1> labels_{};  // curves and the fixed series
  std::array<peq::SerienStil, peq::kSerienAnz + 1> stilShown_{};
  std::array<bool, peq::kSerienAnz + 1> stilKnown_{};
  QLabel* lblStatus_ = nullptr;
  QPushButton* cmdDraw_ = nullptr;
  QPushButton* cmdTausch_ = nullptr;
  QPushButton* cmdCoord_ = nullptr;
  QPushButton* cmdXLog_ = nullptr;
  QPushButton* cmdYLog_ = nullptr;
  QPushButton* cmdZoom_ = nullptr;
  QPushButton* cmdZoomReset_ = nullptr;
  QPushButton* cmdDelKurv_ = nullptr;
  QPushButton* cmdClipboard_ = nullptr;
  QPushButton* mnuBild_ = nullptr;
  QPushButton* mnuDelete_ = nullptr;
  QMenu* mnuSubDelKurv_ = nullptr;
  QPushButton* mnuMarker_ = nullptr;
  QPushButton* mnuDatei_ = nullptr;
  QPushButton* cmdGraphCalc_ = nullptr;
  std::vector<QGraphicsSimpleTextItem*> markerLabels_;
  std::vector<QLineSeries*> teilSerien_;  // pieces of series after a hole
  void BuildMarkerMenu(QHBoxLayout* row);
  void RenderMarkerLabels();
  bool zoomModus_ = false;
};

}  // namespace pequi
