#include "ui/graph2dwindow.h"

#include <QApplication>
#include <QClipboard>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGraphicsSimpleTextItem>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QLogValueAxis>
#include <QMainWindow>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QPushButton>
#include <QRubberBand>
#include <QStatusBar>
#include <QSvgGenerator>
#include <QToolButton>
#include <QVBoxLayout>
#include <QValueAxis>
#include <QtCharts/QChart>
#include <QtCharts/QChartView>
#include <QtCharts/QLegendMarker>
#include <QtCharts/QLineSeries>
#include <algorithm>
#include <cmath>
#include <functional>
#include <tuple>

#include <QBuffer>
#include <QMimeData>
#include <QPageLayout>
#include <QPdfWriter>
#include <QPrintDialog>
#include <QPrinter>

#include "ui/curvedesigndialog.h"
#include "ui/knopf.h"
#include "ui/qtconvert.h"
#include "windows/graph2dfile.h"
#include "windows/graph2dmarker.h"
#include "windows/graphcalc.h"
#include "windows/shell.h"

namespace pequi {

// The chart view: mouse over and click for the read-out, right click for the curve design, and
// the rubber band of the zoom.
class Graph2DChartView : public QChartView {
 public:
  Graph2DChartView(QChart* chart, Graph2DWindow* w) : QChartView(chart, w), w_(w) {
    setMouseTracking(true);
    setRenderHint(QPainter::Antialiasing);
    setObjectName(QStringLiteral("Chart2D1"));
  }

 protected:
  void mousePressEvent(QMouseEvent* e) override {
    if (w_->ZoomModus() && e->button() == Qt::LeftButton) {
      start_ = e->position().toPoint();
      if (!band_) band_ = new QRubberBand(QRubberBand::Rectangle, this);
      band_->setGeometry(QRect(start_, QSize()));
      band_->show();
      return;
    }
    w_->MausKlick(e->position().toPoint(), e->button());
  }
  void mouseMoveEvent(QMouseEvent* e) override {
    if (band_ && band_->isVisible()) {
      band_->setGeometry(QRect(start_, e->position().toPoint()).normalized());
      return;
    }
    w_->MausBewegt(e->position().toPoint());
  }
  void mouseReleaseEvent(QMouseEvent* e) override {
    if (band_ && band_->isVisible()) {
      band_->hide();
      w_->ZoomRechteck(start_, e->position().toPoint());
    }
  }

 private:
  Graph2DWindow* w_;
  QRubberBand* band_ = nullptr;
  QPoint start_;
};

namespace {

Qt::PenStyle PenStil(peq::LinienMuster m) {
  switch (m) {
    case peq::LinienMuster::Keine: return Qt::NoPen;
    case peq::LinienMuster::Voll: return Qt::SolidLine;
    case peq::LinienMuster::Strich: return Qt::DashLine;
    case peq::LinienMuster::Punkt: return Qt::DotLine;
    case peq::LinienMuster::StrichPunkt: return Qt::DashDotLine;
  }
  return Qt::SolidLine;
}

// The symbol of a measured point: a square or a circle, filled or hollow (white inside).
QImage ExpSymbolBild(bool eckig, bool hohl, const QColor& c, int size) {
  QImage img(size, size, QImage::Format_ARGB32_Premultiplied);
  img.fill(Qt::transparent);
  QPainter p(&img);
  p.setRenderHint(QPainter::Antialiasing);
  p.setPen(QPen(c, 1.2));
  p.setBrush(hohl ? QColor(Qt::white) : c);
  const QRectF r(1, 1, size - 2, size - 2);
  if (eckig)
    p.drawRect(r);
  else
    p.drawEllipse(r);
  return img;
}

// A symbol drawn into an image: the marker of a series' points.
QImage SymbolBild(peq::Symbol s, const QColor& c, int size) {
  QImage img(size, size, QImage::Format_ARGB32_Premultiplied);
  img.fill(Qt::transparent);
  if (s == peq::Symbol::Keins) return img;
  QPainter p(&img);
  p.setRenderHint(QPainter::Antialiasing);
  p.setPen(QPen(c, 1.2));
  p.setBrush(c);
  const QRectF r(1, 1, size - 2, size - 2);
  const QPointF m = r.center();
  switch (s) {
    case peq::Symbol::Punkt: p.drawEllipse(m, size / 5.0, size / 5.0); break;
    case peq::Symbol::Kreis:
      p.setBrush(Qt::NoBrush);
      p.drawEllipse(r);
      break;
    case peq::Symbol::Quadrat: p.drawRect(r.adjusted(1, 1, -1, -1)); break;
    case peq::Symbol::Dreieck: {
      QPolygonF t{QPointF(m.x(), r.top()), r.bottomRight(), r.bottomLeft()};
      p.drawPolygon(t);
      break;
    }
    case peq::Symbol::Raute: {
      QPolygonF t{QPointF(m.x(), r.top()), QPointF(r.right(), m.y()), QPointF(m.x(), r.bottom()),
                  QPointF(r.left(), m.y())};
      p.drawPolygon(t);
      break;
    }
    case peq::Symbol::Kreuz:
      p.drawLine(r.topLeft(), r.bottomRight());
      p.drawLine(r.topRight(), r.bottomLeft());
      break;
    case peq::Symbol::Stern:
      p.drawLine(r.topLeft(), r.bottomRight());
      p.drawLine(r.topRight(), r.bottomLeft());
      p.drawLine(QPointF(m.x(), r.top()), QPointF(m.x(), r.bottom()));
      p.drawLine(QPointF(r.left(), m.y()), QPointF(r.right(), m.y()));
      break;
    case peq::Symbol::Keins: break;
  }
  return img;
}

void StilSetzen(QLineSeries* ser, const peq::SerienStil& st) {
  const QColor c(QRgb(0xff000000u | st.Farbe));
  QPen pen(c, st.Breite);
  pen.setStyle(PenStil(st.Muster));
  if (st.Muster == peq::LinienMuster::Keine) pen.setColor(Qt::transparent);
  ser->setPen(pen);
  ser->setColor(c);
  if (st.Sym != peq::Symbol::Keins) {
    const int size = std::max(4, static_cast<int>(st.SymGroesse + 0.5f));
    ser->setMarkerSize(size);
    ser->setLightMarker(SymbolBild(st.Sym, c, size));
  } else {
    ser->setLightMarker(QImage());
  }
}

// An axis fit for the range: linear or logarithmic with a tick format that suits the span.
QAbstractAxis* NeueAchse(bool log, double lo, double hi, const QString& title) {
  if (log) {
    auto* a = new QLogValueAxis;
    a->setBase(10);
    a->setLabelFormat(QStringLiteral("%g"));
    a->setMinorTickCount(8);
    a->setRange(lo, hi);
    a->setTitleText(title);
    return a;
  }
  auto* a = new QValueAxis;
  a->setRange(lo, hi);
  a->setTitleText(title);
  return a;
}

void AchseAnpassen(QAbstractAxis* axis, bool log, double lo, double hi, const QString& title) {
  if (log) {
    static_cast<QLogValueAxis*>(axis)->setRange(lo, hi);
  } else {
    auto* a = static_cast<QValueAxis*>(axis);
    a->setRange(lo, hi);
    // Ticks at round numbers: 1, 2, 2.5 or 5 times a power of ten, about eight to the axis.
    const double span = std::fabs(hi - lo);
    if (span > 0 && std::isfinite(span)) {
      const double roh = span / 8.0;
      const double zehner = std::pow(10.0, std::floor(std::log10(roh)));
      double schritt = zehner;
      for (double m : {1.0, 2.0, 2.5, 5.0, 10.0})
        if (m * zehner >= roh) {
          schritt = m * zehner;
          break;
        }
      int dec = std::max(0, static_cast<int>(-std::floor(std::log10(schritt) + 1e-9)));
      if (std::fabs(schritt / std::pow(10.0, -dec) - std::round(schritt / std::pow(10.0, -dec))) > 1e-6) ++dec;
      a->setTickType(QValueAxis::TicksDynamic);
      a->setTickAnchor(std::ceil(lo / schritt) * schritt);
      a->setTickInterval(schritt);
      a->setMinorTickCount(1);
      a->setLabelFormat(QStringLiteral("%.") + QString::number(dec) + QStringLiteral("f"));
    }
  }
  if (axis->titleText() != title) axis->setTitleText(title);
}

// The coordinates dialog: four boxes and the refusal text.
class KoordDialog : public QDialog {
 public:
  KoordDialog(const peq::Achsenbereich& b, QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmKoord"));
    setWindowTitle(QStringLiteral("Coordinates"));
    auto* form = new QFormLayout(this);
    const float v[4] = {b.XMin, b.XMax, b.YMin, b.YMax};
    const char* names[4] = {"txtXMin", "txtXMax", "txtYMin", "txtYMax"};
    const char* labels[4] = {"x min", "x max", "y min", "y max"};
    for (int k = 0; k < 4; ++k) {
      box[k] = new QLineEdit(QString::number(static_cast<double>(v[k]), 'g', 7), this);
      box[k]->setObjectName(QString::fromLatin1(names[k]));
      form->addRow(QString::fromLatin1(labels[k]), box[k]);
    }
    fehler = new QLabel(this);
    fehler->setObjectName(QStringLiteral("lblFehler"));
    form->addRow(fehler);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    buttons->button(QDialogButtonBox::Ok)->setObjectName(QStringLiteral("cmdCoord_OK"));
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    form->addRow(buttons);
  }
  bool Lesen(peq::Achsenbereich& b) const {
    float v[4];
    for (int k = 0; k < 4; ++k) {
      bool ok = false;
      v[k] = box[k]->text().trimmed().replace(QLatin1Char(','), QLatin1Char('.')).toFloat(&ok);
      if (!ok) return false;
    }
    b = peq::Achsenbereich{v[0], v[1], v[2], v[3]};
    return true;
  }
  QLineEdit* box[4]{};
  QLabel* fehler = nullptr;
};

}  // namespace

Graph2DWindow::Graph2DWindow(peq::mdiPEQ& f, peq::frmGraph2D& g, QWidget* parent)
    : StateDialog(f, peq::WindowId::frmGraph2D, parent), g_(g) {
  setObjectName(QStringLiteral("frmGraph2D"));
  setWindowFlag(Qt::WindowMinMaxButtonsHint, true);
  setWindowModality(Qt::NonModal);
  resize(980, 640);

  chart_ = new QChart;
  chart_->setObjectName(QStringLiteral("Chart2D"));
  chart_->legend()->setAlignment(Qt::AlignRight);
  chart_->setMargins(QMargins(6, 6, 6, 6));
  QFont tf = chart_->titleFont();
  tf.setPointSizeF(tf.pointSizeF() + 1);
  tf.setBold(true);
  chart_->setTitleFont(tf);
  view_ = new Graph2DChartView(chart_, this);

  auto* knoepfe = new QHBoxLayout;
  cmdDraw_ = Knopf(Q(peq::kCmdDrawCaption), QStringLiteral("cmdDraw"), this);
  cmdTausch_ = Knopf(QString(), QStringLiteral("cmdTausch"), this);
  cmdTausch_->setToolTip(QStringLiteral("exchange the components"));
  cmdCoord_ = Knopf(QStringLiteral("Coordinates"), QStringLiteral("mnuCoord"), this);
  cmdXLog_ = Knopf(QStringLiteral("x log"), QStringLiteral("cmdXLog"), this);
  cmdYLog_ = Knopf(QStringLiteral("y log"), QStringLiteral("cmdYLog"), this);
  cmdXLog_->setCheckable(true);
  cmdYLog_->setCheckable(true);
  cmdZoom_ = Knopf(QStringLiteral("Zoom"), QStringLiteral("cmdZoom"), this);
  cmdZoom_->setCheckable(true);
  cmdZoomReset_ = Knopf(QStringLiteral("Zoom back"), QStringLiteral("cmdZoomReset"), this);
  cmdDelKurv_ = Knopf(QStringLiteral("Delete curves"), QStringLiteral("cmdDelKurv"), this);
  cmdClipboard_ = Knopf(QStringLiteral("Curve to clipboard"), QStringLiteral("cmdClipboard"), this);
  // A push button draws its menu arrow beside the text, not over it.
  mnuBild_ = Knopf(QStringLiteral("&Image"), QStringLiteral("mnuBild"), this);
  auto* bildMenu = new QMenu(mnuBild_);
  QAction* clip = bildMenu->addAction(QStringLiteral("to the Clipboard"));
  clip->setObjectName(QStringLiteral("mnuBildClipboard"));
  QAction* datei = bildMenu->addAction(QStringLiteral("Write image file"));
  datei->setObjectName(QStringLiteral("mnuBildDatei"));
  QAction* vektor = bildMenu->addAction(QStringLiteral("to the Clipboard: Vector Image"));
  vektor->setObjectName(QStringLiteral("mnuBildVektor"));
  connect(vektor, &QAction::triggered, this, [this] { VektorInZwischenablage(); });
  QAction* drucken = bildMenu->addAction(QStringLiteral("Print"));
  drucken->setObjectName(QStringLiteral("cmdPrint"));
  connect(drucken, &QAction::triggered, this, [this] { cmdPrint(); });
  mnuBild_->setMenu(bildMenu);
  // The delete menu: one curve, the point clicked last, all curves, everything.
  mnuDelete_ = Knopf(QStringLiteral("&Delete"), QStringLiteral("mnuDelete"), this);
  auto* delMenu = new QMenu(mnuDelete_);
  delMenu->setObjectName(QStringLiteral("mnuDeleteMenu"));
  mnuSubDelKurv_ = delMenu->addMenu(QStringLiteral("&One curve"));
  mnuSubDelKurv_->setObjectName(QStringLiteral("mnuSubDelKurv"));
  QAction* punkt = delMenu->addAction(QStringLiteral("The &point clicked last"));
  punkt->setObjectName(QStringLiteral("cmdMsgDelPoint"));
  punkt->setShortcut(QKeySequence::Delete);
  punkt->setShortcutContext(Qt::WidgetWithChildrenShortcut);
  addAction(punkt);
  QAction* kurven = delMenu->addAction(QStringLiteral("&All curves"));
  kurven->setObjectName(QStringLiteral("cmdDelKurvMenu"));
  QAction* alle = delMenu->addAction(QStringLiteral("All (curves, &markers, points)"));
  alle->setObjectName(QStringLiteral("mnuDelTotal"));
  mnuDelete_->setMenu(delMenu);
  connect(delMenu, &QMenu::aboutToShow, this, [this, punkt, kurven, alle] {
    mnuSubDelKurv_->clear();
    const auto liste = g_.KurvenListe();
    for (const auto& [slot, text] : liste) {
      QAction* a = mnuSubDelKurv_->addAction(Q(text));
      a->setObjectName(QStringLiteral("mnuSubDelKurv_%1").arg(slot));
      const int k = slot;
      connect(a, &QAction::triggered, this, [this, k] { Do([this, k] { g_.mnuSubDelKurv_Click(f_, k); }); });
    }
    mnuSubDelKurv_->setEnabled(!liste.empty());
    punkt->setEnabled(g_.MarkSerie != 0);
    kurven->setEnabled(!liste.empty());
    alle->setEnabled(true);
  });
  connect(punkt, &QAction::triggered, this, [this] { Do([this] { g_.mnuDelPoint_Click(f_); }); });
  connect(kurven, &QAction::triggered, this, [this] { Do([this] { g_.cmdDelKurv_Click(f_); }); });
  for (QWidget* w : std::initializer_list<QWidget*>{cmdDraw_, cmdTausch_, cmdCoord_, cmdXLog_, cmdYLog_, cmdZoom_,
                                                    cmdZoomReset_, mnuDelete_, cmdClipboard_, mnuBild_}) {
    // A button keeps room for its whole caption (and the arrow of its menu).
    w->setMinimumWidth(w->sizeHint().width() + (w == mnuDelete_ || w == mnuBild_ ? 12 : 0));
    knoepfe->addWidget(w);
  }
  BuildMarkerMenu(knoepfe);
  // Deleting all curves stands in the delete menu; the row has no room for a button of its own.
  cmdDelKurv_->hide();
  knoepfe->addStretch(1);

  lblStatus_ = new QLabel(this);
  lblStatus_->setObjectName(QStringLiteral("lblStatus"));
  lblStatus_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  // Room for the read-out and the two lines of the hint from the start: the plot keeps its size.
  lblStatus_->setFixedHeight(lblStatus_->fontMetrics().lineSpacing() * 3 + 6);
  lblStatus_->setAlignment(Qt::AlignLeft | Qt::AlignTop);

  auto* lay = new QVBoxLayout(this);
  lay->setContentsMargins(4, 4, 4, 4);
  lay->addLayout(knoepfe);
  lay->addWidget(view_, 1);
  lay->addWidget(lblStatus_);

  connect(cmdDraw_, &QPushButton::clicked, this, [this] {
    QApplication::setOverrideCursor(Qt::WaitCursor);
    Do([this] { g_.cmdDraw_Click(f_); });
    QApplication::restoreOverrideCursor();
  });
  connect(cmdTausch_, &QPushButton::clicked, this, [this] { Do([this] { g_.cmdTausch_Click(f_); }); });
  connect(cmdCoord_, &QPushButton::clicked, this, [this] { Koordinaten(); });
  connect(cmdXLog_, &QPushButton::clicked, this, [this] { Do([this] { g_.cmdXLog_Click(f_); }); });
  connect(cmdYLog_, &QPushButton::clicked, this, [this] { Do([this] { g_.cmdYLog_Click(f_); }); });
  connect(cmdZoom_, &QPushButton::toggled, this, [this](bool on) { zoomModus_ = on; });
  connect(cmdZoomReset_, &QPushButton::clicked, this, [this] {
    cmdZoom_->setChecked(false);
    Do([this] { g_.cmdZoomReset(f_); });
  });
  connect(cmdDelKurv_, &QPushButton::clicked, this, [this] { Do([this] { g_.cmdDelKurv_Click(f_); }); });
  connect(cmdClipboard_, &QPushButton::clicked, this, [this] { KurveInZwischenablage(); });
  connect(clip, &QAction::triggered, this, [this] { BildInZwischenablage(); });
  connect(datei, &QAction::triggered, this, [this] { BildDatei(); });
  connect(alle, &QAction::triggered, this, [this] { Do([this] { g_.mnuDelTotal_Click(f_); }); });
  // Experimental points and the XY editor in one menu button.
  auto* mnuExp = Knopf(QStringLiteral("&Data"), QStringLiteral("mnuExp"), this);
  auto* expMenu = new QMenu(mnuExp);
  QAction* zeige = expMenu->addAction(QStringLiteral("Show experimental T-p-x points"));
  zeige->setObjectName(QStringLiteral("zeigeExpPunkte"));
  QAction* manuPunkte = expMenu->addAction(QStringLiteral("Points from the XY editor"));
  manuPunkte->setObjectName(QStringLiteral("cmdManuPoints"));
  QAction* manuKurve = expMenu->addAction(QStringLiteral("Curve from the XY editor"));
  manuKurve->setObjectName(QStringLiteral("cmdManuKurve"));
  QAction* manuXY = expMenu->addAction(QStringLiteral("XY editor"));
  manuXY->setObjectName(QStringLiteral("mnuManuXY"));
  QAction* alsXY = expMenu->addAction(QStringLiteral("Save curve as *.XY"));
  alsXY->setObjectName(QStringLiteral("cmdSaveCurveAsXY"));
  mnuExp->setMenu(expMenu);
  mnuExp->setMinimumWidth(mnuExp->sizeHint().width() + 12);
  knoepfe->insertWidget(knoepfe->count() - 1, mnuExp);
  connect(zeige, &QAction::triggered, this, [this] { Do([this] { g_.zeigeExpPunkte_Click(f_); }); });
  connect(manuPunkte, &QAction::triggered, this, [this] { g_.cmdManuPoints_Click(f_); });
  connect(manuKurve, &QAction::triggered, this, [this] { g_.cmdManuKurve_Click(f_); });
  connect(manuXY, &QAction::triggered, this, [this] { g_.mnuManuXY_Click(f_); });
  connect(alsXY, &QAction::triggered, this, [this] {
    int slot = g_.Doc.AktKurve;
    if (g_.Doc.AnzKurven > 1) {
      bool ok = false;
      slot = QInputDialog::getInt(this, QStringLiteral("Save curve as *.XY"), QStringLiteral("number of the curve"),
                                  slot, 1, peq::kMaxKurven, 1, &ok);
      if (!ok) return;
    }
    g_.cmdSaveCurveAsXY_Click(f_, slot);
  });
  connect(chart_, &QChart::plotAreaChanged, this, [this] { RenderLabels(); });

  BuildSeries();
  Render();
}

Graph2DWindow::~Graph2DWindow() = default;

QChartView* Graph2DWindow::View() const { return view_; }

void Graph2DWindow::Cancel() {
  // A diagram with curves closes only when the user says so.
  if (!g_.SchliessenErlaubt(f_)) return;
  f_.Unload(peq::WindowId::frmGraph2D);
}

void Graph2DWindow::BuildSeries() {
  const peq::Graph2DDoc& d = g_.Doc;
  xLogShown_ = d.XLog;
  yLogShown_ = d.YLog;
  xAxis_ = NeueAchse(d.XLog, d.Bereich.XMin, d.Bereich.XMax, Q(d.XTitel));
  yAxis_ = NeueAchse(d.YLog, d.Bereich.YMin, d.Bereich.YMax, Q(d.YTitel));
  chart_->addAxis(xAxis_, Qt::AlignBottom);
  chart_->addAxis(yAxis_, Qt::AlignLeft);
  for (int k = 1; k <= peq::kSerienAnz; ++k) {
    auto* s = new QLineSeries(chart_);
    s->setObjectName(QStringLiteral("Serie%1").arg(k));
    chart_->addSeries(s);
    s->attachAxis(xAxis_);
    s->attachAxis(yAxis_);
    serien_[static_cast<std::size_t>(k)] = s;
  }
  for (int k = 1; k <= peq::kSerienAnz; ++k) {
    auto* t = new QGraphicsSimpleTextItem(chart_);
    t->setZValue(20);
    t->hide();
    labels_[static_cast<std::size_t>(k)] = t;
  }
}

void Graph2DWindow::RenderAxes() {
  const peq::Graph2DDoc& d = g_.Doc;
  if (d.XLog != xLogShown_ || d.YLog != yLogShown_) {
    // An axis changes its kind: the series move to a new one. They are emptied first, since a
    // logarithmic axis refuses points at or below zero; the points come back filtered.
    for (int k = 1; k <= peq::kSerienAnz; ++k) serien_[static_cast<std::size_t>(k)]->clear();
    for (QLineSeries* e : expSerien_) {
      chart_->removeSeries(e);
      delete e;
    }
    expSerien_.clear();
    QAbstractAxis* nx = NeueAchse(d.XLog, d.Bereich.XMin, d.Bereich.XMax, Q(d.XTitel));
    QAbstractAxis* ny = NeueAchse(d.YLog, d.Bereich.YMin, d.Bereich.YMax, Q(d.YTitel));
    chart_->removeAxis(xAxis_);
    chart_->removeAxis(yAxis_);
    delete xAxis_;
    delete yAxis_;
    xAxis_ = nx;
    yAxis_ = ny;
    chart_->addAxis(xAxis_, Qt::AlignBottom);
    chart_->addAxis(yAxis_, Qt::AlignLeft);
    for (QAbstractSeries* s : chart_->series()) {
      s->attachAxis(xAxis_);
      s->attachAxis(yAxis_);
    }
    xLogShown_ = d.XLog;
    yLogShown_ = d.YLog;
  }
  AchseAnpassen(xAxis_, d.XLog, d.Bereich.XMin, d.Bereich.XMax, Q(d.XTitel));
  AchseAnpassen(yAxis_, d.YLog, d.Bereich.YMin, d.Bereich.YMax, Q(d.YTitel));
  // A number format of the document (from a loaded diagram file) replaces the automatic one.
  if (!d.XFormat.empty() && !d.XLog) static_cast<QValueAxis*>(xAxis_)->setLabelFormat(Q(d.XFormat));
  if (!d.YFormat.empty() && !d.YLog) static_cast<QValueAxis*>(yAxis_)->setLabelFormat(Q(d.YFormat));
}

void Graph2DWindow::RenderSeries() {
  const peq::Graph2DDoc& d = g_.Doc;
  QList<QPointF> pts;
  // A hole parts a series: the pieces after the first are drawn by series of their own.
  for (QLineSeries* t : teilSerien_) {
    chart_->removeSeries(t);
    delete t;
  }
  teilSerien_.clear();
  for (int k = 1; k <= peq::kSerienAnz; ++k) {
    const peq::Serie& s = d.Serien[static_cast<std::size_t>(k)];
    QLineSeries* ser = serien_[static_cast<std::size_t>(k)];
    pts.clear();
    pts.reserve(s.Punkte());
    QList<QList<QPointF>> weitere;
    QList<QPointF>* ziel = &pts;
    for (int i = 0; i < s.Punkte(); ++i) {
      const float x = s.x[static_cast<std::size_t>(i)], y = s.y[static_cast<std::size_t>(i)];
      if (peq::IstLoch(x) || peq::IstLoch(y)) {
        if (!ziel->isEmpty()) {
          weitere.append(QList<QPointF>());
          ziel = &weitere.back();
        }
        continue;
      }
      if ((d.XLog && !(x > 0)) || (d.YLog && !(y > 0))) continue;
      ziel->append(QPointF(x, y));
    }
    ser->replace(pts);
    for (const QList<QPointF>& teil : weitere) {
      if (teil.isEmpty()) continue;
      auto* t = new QLineSeries(chart_);
      t->replace(teil);
      chart_->addSeries(t);
      t->attachAxis(xAxis_);
      t->attachAxis(yAxis_);
      StilSetzen(t, s.Stil);
      teilSerien_.push_back(t);
    }
    if (!stilKnown_[static_cast<std::size_t>(k)] || !(stilShown_[static_cast<std::size_t>(k)] == s.Stil)) {
      StilSetzen(ser, s.Stil);
      stilShown_[static_cast<std::size_t>(k)] = s.Stil;
      stilKnown_[static_cast<std::size_t>(k)] = true;
    }
    ser->setName(Q(s.Legende));
    const bool zeigen = !pts.isEmpty();
    if (ser->isVisible() != zeigen) ser->setVisible(zeigen);
  }
  // The legend lists curves with a text only.
  const auto markers = chart_->legend()->markers();
  for (QLegendMarker* m : markers) {
    auto* xs = qobject_cast<QXYSeries*>(m->series());
    m->setVisible(xs && xs->isVisible() && !xs->name().isEmpty());
  }
  // Experimental sets as symbols.
  for (QLineSeries* s : expSerien_) {
    chart_->removeSeries(s);
    delete s;
  }
  expSerien_.clear();
  for (const peq::ExpSatz& e : d.ExpSaetze) {
    for (const peq::Serie* s : {&e.L, &e.V}) {
      if (s->Punkte() == 0) continue;
      // A line series without its line, each point drawn as one image: a scatter series would
      // make a scene item of every point, which takes seconds for 10,000 measured points.
      auto* sc = new QLineSeries(chart_);
      QList<QPointF> pts;
      pts.reserve(s->Punkte());
      for (int i = 0; i < s->Punkte(); ++i) {
        const float x = s->x[static_cast<std::size_t>(i)], y = s->y[static_cast<std::size_t>(i)];
        if ((d.XLog && !(x > 0)) || (d.YLog && !(y > 0))) continue;
        pts.append(QPointF(x, y));
      }
      sc->replace(pts);
      const int size = s->Stil.SymGroesse > 0 ? static_cast<int>(s->Stil.SymGroesse) : 8;
      const QColor c(QRgb(0xff000000u | s->Stil.Farbe));
      sc->setPen(Qt::NoPen);
      sc->setColor(c);
      sc->setMarkerSize(size);
      sc->setPointsVisible(true);
      // Each set its symbol; the vapour points hollow beside the filled liquid ones.
      const bool eckig = s->Stil.Sym == peq::Symbol::Quadrat || s->Stil.Sym == peq::Symbol::Raute;
      sc->setLightMarker(ExpSymbolBild(eckig, s == &e.V, c, size));
      sc->setName(Q(s->Legende.empty() ? e.Legende : s->Legende));
      chart_->addSeries(sc);
      sc->attachAxis(xAxis_);
      sc->attachAxis(yAxis_);
      expSerien_.push_back(sc);
    }
  }
}

void Graph2DWindow::RenderLabels() {
  const peq::Graph2DDoc& d = g_.Doc;
  const QRectF plot = chart_->plotArea();
  for (int k = 1; k <= peq::kSerienAnz; ++k) {
    QGraphicsSimpleTextItem* t = labels_[static_cast<std::size_t>(k)];
    const peq::Serie& s = d.Serien[static_cast<std::size_t>(k)];
    if (s.LabelPunkt < 1 || s.LabelPunkt > s.Punkte() || s.Label.empty()) {
      t->hide();
      continue;
    }
    const float x = s.x[static_cast<std::size_t>(s.LabelPunkt - 1)];
    const float y = s.y[static_cast<std::size_t>(s.LabelPunkt - 1)];
    const QPointF p = chart_->mapToPosition(QPointF(x, y), serien_[static_cast<std::size_t>(k)]);
    if (!plot.contains(p)) {
      t->hide();
      continue;
    }
    t->setText(Q(s.Label));
    t->setBrush(QColor(QRgb(0xff000000u | s.Stil.Farbe)));
    // Curves of one drawing lie close together: odd slots are labelled above, even ones below.
    const QRectF br = t->boundingRect();
    t->setPos(k % 2 ? p + QPointF(4, -br.height() - 2) : p + QPointF(-br.width() - 4, 2));
    t->show();
  }
  RenderMarkerLabels();
}

void Graph2DWindow::Render() {
  const peq::Graph2DDoc& d = g_.Doc;
  setWindowTitle(Q(g_.Caption));
  // The title, and under it which component the composition axis tells.
  QString titel = Q(d.Titel).toHtmlEscaped();
  if (!g_.Untertitel.empty())
    titel += QStringLiteral("<br><span style=\"font-weight:normal\">") + Q(g_.Untertitel).toHtmlEscaped() +
             QStringLiteral("</span>");
  if (chart_->title() != titel) chart_->setTitle(titel);
  cmdTausch_->setText(Q(g_.cmdTauschCaption));
  cmdTausch_->setEnabled(g_.cmdTauschEnabled);
  cmdXLog_->setChecked(d.XLog);
  cmdYLog_->setChecked(d.YLog);
  cmdZoomReset_->setEnabled(d.Gezoomt);
  if (!d.Gezoomt && cmdZoom_->isChecked() && !zoomModus_) cmdZoom_->setChecked(false);
  RenderAxes();
  RenderSeries();
  RenderLabels();
  lblStatus_->setText(Q(g_.Status));
  if (auto* mw = qobject_cast<QMainWindow*>(window())) mw->statusBar()->showMessage(Q(g_.Kommentar));
}

QXYSeries* Graph2DWindow::SerieVon(int slot) const {
  if (slot < 1 || slot > peq::kSerienAnz) return nullptr;
  QLineSeries* s = serien_[static_cast<std::size_t>(slot)];
  return s->count() > 0 ? s : nullptr;
}

int Graph2DWindow::GezeichneteSerien() const {
  int n = 0;
  for (QAbstractSeries* s : chart_->series()) {
    // The pieces of a series parted by a hole belong to it.
    if (std::find(teilSerien_.begin(), teilSerien_.end(), s) != teilSerien_.end()) continue;
    if (auto* xs = qobject_cast<QXYSeries*>(s); xs && xs->count() > 0) ++n;
  }
  return n;
}

QPoint Graph2DWindow::PixelVon(double x, double y) const {
  const QPointF scene = chart_->mapToScene(chart_->mapToPosition(QPointF(x, y), serien_[1]));
  return view_->mapFromScene(scene);
}

bool Graph2DWindow::PunktBei(const QPoint& pos, int& serie, int& punkt) const {
  const peq::Graph2DDoc& d = g_.Doc;
  const QRectF plot = chart_->plotArea();
  const QPointF inChart = chart_->mapFromScene(view_->mapToScene(pos));
  if (!plot.adjusted(-6, -6, 6, 6).contains(inChart)) return false;
  // Data to pixel by the axes' own scale, linear or logarithmic.
  auto tr = [](double v, bool log) { return log ? std::log10(std::max(v, 1e-300)) : v; };
  const double x0 = tr(d.Bereich.XMin, d.XLog), x1 = tr(d.Bereich.XMax, d.XLog);
  const double y0 = tr(d.Bereich.YMin, d.YLog), y1 = tr(d.Bereich.YMax, d.YLog);
  if (x1 == x0 || y1 == y0) return false;
  const double sx = plot.width() / (x1 - x0), sy = plot.height() / (y1 - y0);
  double best = 8.0 * 8.0;
  serie = punkt = 0;
  for (int k = 1; k <= peq::kSerienAnz; ++k) {
    const peq::Serie& s = d.Serien[static_cast<std::size_t>(k)];
    for (int i = 0; i < s.Punkte(); ++i) {
      const float x = s.x[static_cast<std::size_t>(i)], y = s.y[static_cast<std::size_t>(i)];
      if (peq::IstLoch(x) || peq::IstLoch(y)) continue;
      const double px = plot.left() + (tr(x, d.XLog) - x0) * sx;
      const double py = plot.bottom() - (tr(y, d.YLog) - y0) * sy;
      const double dd = (px - inChart.x()) * (px - inChart.x()) + (py - inChart.y()) * (py - inChart.y());
      if (dd < best) {
        best = dd;
        serie = k;
        punkt = i + 1;
      }
    }
  }
  return serie != 0;
}

void Graph2DWindow::MausBewegt(const QPoint& pos) {
  int serie = 0, punkt = 0;
  if (!PunktBei(pos, serie, punkt)) return;
  g_.Chart_MouseMove(serie, punkt);
  lblStatus_->setText(Q(g_.Status));
}

void Graph2DWindow::MausKlick(const QPoint& pos, Qt::MouseButton button) {
  int serie = 0, punkt = 0;
  if (!PunktBei(pos, serie, punkt)) return;
  if (button == Qt::RightButton) {
    if (g_.Chart_RightClick(serie)) Kurvendesign(serie);
    return;
  }
  g_.Chart_Click(f_, serie, punkt);
  lblStatus_->setText(Q(g_.Status));
}

void Graph2DWindow::ZoomRechteck(const QPoint& a, const QPoint& b) {
  if ((a - b).manhattanLength() < 4) return;
  const QPointF va = chart_->mapToValue(chart_->mapFromScene(view_->mapToScene(a)), serien_[1]);
  const QPointF vb = chart_->mapToValue(chart_->mapFromScene(view_->mapToScene(b)), serien_[1]);
  Do([&] {
    g_.cmdZoom(f_, static_cast<float>(va.x()), static_cast<float>(va.y()), static_cast<float>(vb.x()),
               static_cast<float>(vb.y()));
  });
}

void Graph2DWindow::Kurvendesign(int serie) {
  peq::Serie& s = g_.Doc.Serien[static_cast<std::size_t>(serie)];
  CurveDesignDialog dlg(s.Stil, QStringLiteral("curve design: ") + Q(s.Legende.empty() ? s.Label : s.Legende), this);
  if (dlg.exec() != QDialog::Accepted) return;
  s.Stil = dlg.Stil();
  Render();
}

void Graph2DWindow::Koordinaten() {
  KoordDialog dlg(g_.Doc.Bereich, this);
  for (;;) {
    if (dlg.exec() != QDialog::Accepted) return;
    peq::Achsenbereich b;
    std::string meldung;
    if (!dlg.Lesen(b)) {
      dlg.fehler->setText(Q(peq::kKoordUngueltig));
      continue;
    }
    bool ok = false;
    Do([&] { ok = g_.cmdCoord_OK(f_, b, meldung); });
    if (ok) return;
    dlg.fehler->setText(Q(meldung));
  }
}

bool Graph2DWindow::SpeicherePng(const QString& file) {
  RenderLabels();
  const QPixmap p = view_->grab();
  return !p.isNull() && p.save(file, "PNG");
}

bool Graph2DWindow::SpeichereSvg(const QString& file) {
  QSvgGenerator gen;
  gen.setFileName(file);
  gen.setSize(view_->size());
  gen.setViewBox(QRect(QPoint(0, 0), view_->size()));
  gen.setTitle(Q(g_.Doc.Titel));
  QPainter p;
  if (!p.begin(&gen)) return false;
  view_->render(&p);
  return p.end();
}

void Graph2DWindow::BildInZwischenablage() { QGuiApplication::clipboard()->setPixmap(view_->grab()); }

void Graph2DWindow::BildDatei() {
  peq::FileDialogRequest req;
  req.save = true;
  req.title = "Write image file";
  req.filter = "PNG image (*.png)|*.png|Bitmap (.BMP) (*.bmp)|*.bmp|SVG image (*.svg)|*.svg|PDF document (*.pdf)|*.pdf";
  req.defaultExt = "png";
  req.initialFile = g_.BildDateiName();
  const peq::FileDialogResult r = f_.ui.FileDialog(req);
  if (r.cancelled || r.fileTitle.empty()) return;
  const QString file = Q(r.fileName);
  const bool ok = SpeichereBild(file);
  if (!ok) f_.ui.MsgBox("Error", "The image file could not be written.", peq::MsgIcon::Stop, peq::Buttons::Ok);
}

void Graph2DWindow::KurveInZwischenablage() {
  // The curve drawn last, or the one the user names.
  int slot = g_.Doc.AktKurve;
  if (g_.Doc.AnzKurven > 1) {
    bool ok = false;
    const int k = QInputDialog::getInt(this, QStringLiteral("Curve to clipboard"), QStringLiteral("number of the curve"),
                                       slot, 1, peq::kMaxKurven, 1, &ok);
    if (!ok) return;
    slot = k;
  }
  g_.cmdClipboard_Click(f_, slot);
}

void Graph2DWindow::BuildMarkerMenu(QHBoxLayout* row) {
  using peq::Marker;
  cmdGraphCalc_ = Knopf(QStringLiteral("y = f(x)"), QStringLiteral("cmdGraphCalc"), this);
  connect(cmdGraphCalc_, &QPushButton::clicked, this, [this] { Do([this] { peq::cmdGraphCalc_Click(f_, g_); }); });
  mnuMarker_ = Knopf(QStringLiteral("&Markers"), QStringLiteral("mnuMarker"), this);
  auto* m = new QMenu(mnuMarker_);
  m->setObjectName(QStringLiteral("mnuMarkerMenu"));
  struct Eintrag {
    const char* name;
    const char* text;
    Marker art;
    std::function<void()> run;
  };
  const std::vector<Eintrag> marken = {
      {"mnuMarkTcr", "Tcr of both components", Marker::Tcr, [this] { peq::mnuMarkTcr_Click(f_, g_); }},
      {"mnuMarkPcr", "pcr of both components", Marker::Pcr, [this] { peq::mnuMarkPcr_Click(f_, g_); }},
      {"mnuMarkPnp", "Normal pressure", Marker::Pnp, [this] { peq::mnuMarkPnp_Click(f_, g_); }},
      {"mnuMarkML", "Mixing gap", Marker::ML, [this] { peq::mnuMarkML_Click(f_, g_); }},
      {"mnuAddKonnode", "Tie-line L-L", Marker::Konnode, [this] { peq::mnuAddKonnode_Click(f_, g_); }},
      {"mnuAddLLE", "Binodal curve (LLE)", Marker::LLE, [this] { peq::mnuAddLLE_Click(f_, g_); }},
      {"mnuMark3PhasePoint", "3-phase point", Marker::DreiPhasen, [this] { peq::mnuMark3PhasePoint_Click(f_, g_); }},
      {"mnuAddDiagonale", "Diagonal", Marker::Diagonale, [this] { peq::mnuAddDiagonale_Click(f_, g_); }},
      {"mnuMarky1", "Line y = 1", Marker::Y1, [this] { peq::mnuMarky1_Click(f_, g_); }},
      {"mnuMarky0", "Line y = 0", Marker::Y0, [this] { peq::mnuMarky0_Click(f_, g_); }},
      {"cmdTangente", "Tangent at the calculated point", Marker::Tangente, [this] { peq::cmdTangente_Click(f_, g_); }},
  };
  std::vector<std::pair<QAction*, Marker>> aktionen;
  for (const Eintrag& e : marken) {
    QAction* a = m->addAction(QString::fromLatin1(e.text));
    a->setObjectName(QString::fromLatin1(e.name));
    auto run = e.run;
    connect(a, &QAction::triggered, this, [this, run] { Do(run); });
    aktionen.emplace_back(a, e.art);
  }
  QMenu* del = m->addMenu(QStringLiteral("Delete marker"));
  del->setObjectName(QStringLiteral("mnuDelMarker"));
  const std::vector<std::tuple<const char*, const char*, std::function<void()>>> loeschen = {
      {"mnuDelTcr", "Tcr", [this] { peq::mnuDelTcr_Click(f_, g_); }},
      {"mnuDelpCr", "pcr", [this] { peq::mnuDelpCr_Click(f_, g_); }},
      {"mnuDelPnd", "Normal pressure", [this] { peq::mnuDelPnd_Click(f_, g_); }},
      {"mnuDelML", "Mixing gap", [this] { peq::mnuDelML_Click(f_, g_); }},
      {"mnuDely0", "Line y = 0", [this] { peq::mnuDely0_Click(f_, g_); }},
      {"mnuDely1", "Line y = 1", [this] { peq::mnuDely1_Click(f_, g_); }},
      {"mnuDelDiagonale", "Diagonal", [this] { peq::mnuDelDiagonale_Click(f_, g_); }},
      {"mnuDel3PhasePoint", "3-phase point", [this] { peq::mnuDel3PhasePoint_Click(f_, g_); }},
      {"mnuDelTangente", "Tangent", [this] { peq::mnuDelTangente_Click(f_, g_); }},
  };
  for (const auto& [name, text, run] : loeschen) {
    QAction* a = del->addAction(QString::fromLatin1(text));
    a->setObjectName(QString::fromLatin1(name));
    auto r = run;
    connect(a, &QAction::triggered, this, [this, r] { Do(r); });
  }
  connect(m, &QMenu::aboutToShow, this, [this, aktionen] {
    for (const auto& [a, art] : aktionen) a->setVisible(peq::MarkerAngeboten(g_.Doc.NoDia, art));
  });
  mnuMarker_->setMenu(m);

  mnuDatei_ = Knopf(QStringLiteral("&File"), QStringLiteral("mnuDatei"), this);
  auto* fm = new QMenu(mnuDatei_);
  QAction* save = fm->addAction(QStringLiteral("Save diagram (*.oc2)"));
  save->setObjectName(QStringLiteral("mnuSaveOC2"));
  QAction* load = fm->addAction(QStringLiteral("Load diagram (*.oc2)"));
  load->setObjectName(QStringLiteral("mnuLoadOC2"));
  QAction* csv = fm->addAction(QStringLiteral("All curves as CSV file"));
  csv->setObjectName(QStringLiteral("mnuCsvAlle"));
  connect(save, &QAction::triggered, this, [this] { Do([this] { peq::mnuSaveOC2_Click(f_, g_); }); });
  connect(load, &QAction::triggered, this, [this] { Do([this] { peq::mnuLoadOC2_Click(f_, g_); }); });
  connect(csv, &QAction::triggered, this, [this] { Do([this] { peq::mnuCsvAlle_Click(f_, g_); }); });
  mnuDatei_->setMenu(fm);
  for (QPushButton* b : {cmdGraphCalc_, mnuMarker_, mnuDatei_}) {
    b->setMinimumWidth(b->sizeHint().width() + (b == cmdGraphCalc_ ? 0 : 12));
    row->addWidget(b);
  }
}

void Graph2DWindow::RenderMarkerLabels() {
  const peq::Graph2DDoc& d = g_.Doc;
  while (markerLabels_.size() < d.MarkerLabels.size()) {
    auto* t = new QGraphicsSimpleTextItem(chart_);
    t->setZValue(20);
    t->setBrush(QColor(0x40, 0x40, 0x40));
    markerLabels_.push_back(t);
  }
  const QRectF plot = chart_->plotArea();
  for (std::size_t i = 0; i < markerLabels_.size(); ++i) {
    QGraphicsSimpleTextItem* t = markerLabels_[i];
    if (i >= d.MarkerLabels.size()) {
      t->hide();
      continue;
    }
    const peq::ChartLabel& l = d.MarkerLabels[i];
    if ((d.XLog && !(l.x > 0)) || (d.YLog && !(l.y > 0))) {
      t->hide();
      continue;
    }
    const QPointF p = chart_->mapToPosition(QPointF(l.x, l.y), serien_[1]);
    if (!plot.adjusted(-1, -1, 1, 1).contains(p)) {
      t->hide();
      continue;
    }
    t->setText(Q(l.Text));
    t->setPos(p + QPointF(3, -t->boundingRect().height() - 1));
    t->show();
  }
}

int Graph2DWindow::MarkerLabelsShown() const {
  int n = 0;
  for (const QGraphicsSimpleTextItem* t : markerLabels_)
    if (t->isVisible()) ++n;
  return n;
}

bool Graph2DWindow::SpeichereBmp(const QString& file) {
  RenderLabels();
  const QPixmap p = view_->grab();
  return !p.isNull() && p.save(file, "BMP");
}

bool Graph2DWindow::SpeicherePdf(const QString& file) {
  RenderLabels();
  QPdfWriter pdf(file);
  pdf.setTitle(Q(g_.Doc.Titel));
  pdf.setCreator(QStringLiteral("PEQ"));
  pdf.setPageLayout(QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Landscape, QMarginsF(10, 10, 10, 10)));
  QPainter p;
  if (!p.begin(&pdf)) return false;
  view_->render(&p);
  return p.end();
}

bool Graph2DWindow::SpeichereBild(const QString& file) {
  if (file.endsWith(QStringLiteral(".svg"), Qt::CaseInsensitive)) return SpeichereSvg(file);
  if (file.endsWith(QStringLiteral(".pdf"), Qt::CaseInsensitive)) return SpeicherePdf(file);
  if (file.endsWith(QStringLiteral(".bmp"), Qt::CaseInsensitive)) return SpeichereBmp(file);
  return SpeicherePng(file);
}

void Graph2DWindow::VektorInZwischenablage() {
  RenderLabels();
  QByteArray svg;
  QBuffer buf(&svg);
  buf.open(QIODevice::WriteOnly);
  QSvgGenerator gen;
  gen.setOutputDevice(&buf);
  gen.setSize(view_->size());
  gen.setViewBox(QRect(QPoint(0, 0), view_->size()));
  gen.setTitle(Q(g_.Doc.Titel));
  QPainter p;
  if (!p.begin(&gen)) return;
  view_->render(&p);
  p.end();
  auto* mime = new QMimeData;
  mime->setData(QStringLiteral("image/svg+xml"), svg);
  mime->setImageData(view_->grab().toImage());
  QGuiApplication::clipboard()->setMimeData(mime);
}

bool Graph2DWindow::Drucke(QPrinter& printer) {
  RenderLabels();
  QPainter p;
  if (!p.begin(&printer)) return false;
  // The chart fills the page, its aspect kept.
  const QRect seite = p.viewport();
  QSize s = view_->size();
  s.scale(seite.size(), Qt::KeepAspectRatio);
  p.setViewport(QRect(seite.topLeft(), s));
  p.setWindow(QRect(QPoint(0, 0), view_->size()));
  view_->render(&p);
  return p.end();
}

void Graph2DWindow::cmdPrint() {
  const bool schwarz = chart_->backgroundBrush().color().lightness() < 60;
  if (!peq::SchwarzesDiagrammErlaubt(f_, schwarz)) return;
  QPrinter printer(QPrinter::HighResolution);
  printer.setPageOrientation(QPageLayout::Landscape);
  printer.setDocName(Q(g_.Doc.Titel));
  QPrintDialog dlg(&printer, this);
  dlg.setObjectName(QStringLiteral("dlgPrint"));
  if (dlg.exec() != QDialog::Accepted) return;
  if (!Drucke(printer))
    f_.ui.MsgBox("Error", "The diagram could not be printed.", peq::MsgIcon::Stop, peq::Buttons::Ok);
}

}  // namespace pequi
