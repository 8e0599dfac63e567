#include "ui/graph3dwindow.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QElapsedTimer>
#include <QFileDialog>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QLinearGradient>
#include <QPushButton>
#include <QSpinBox>
#include <QVBoxLayout>
#include <QtDataVisualization/Q3DCamera>
#include <QtDataVisualization/Q3DScene>
#include <QtDataVisualization/Q3DSurface>
#include <QtDataVisualization/Q3DTheme>
#include <QtDataVisualization/QSurface3DSeries>
#include <QtDataVisualization/QSurfaceDataProxy>
#include <QtDataVisualization/QValue3DAxis>
#include <cmath>
#include <limits>
#include <stdexcept>

#include "ui/knopf.h"
#include "ui/qtconvert.h"

namespace pequi {

namespace {

QString Zahl(float v) { return QString::number(static_cast<double>(v), 'g', 7); }

bool LiesZahl(const QLineEdit* e, float& v) {
  bool ok = false;
  QString t = e->text().trimmed();
  t.replace(QLatin1Char(','), QLatin1Char('.'));
  const double d = t.toDouble(&ok);
  if (!ok || !std::isfinite(d) || std::fabs(d) > 3.4e38) return false;
  v = static_cast<float>(d);
  return true;
}

}  // namespace

Graph3DWindow::Graph3DWindow(peq::mdiPEQ& f, peq::frmGraph3D& g, QWidget* parent)
    : StateDialog(f, peq::WindowId::frmGraph3D, parent), g_(g) {
  setObjectName(QStringLiteral("frmGraph3D"));
  setWindowFlag(Qt::WindowMinMaxButtonsHint, true);
  setWindowModality(Qt::NonModal);
  resize(980, 680);

  graph_ = new Q3DSurface;
  if (!graph_->hasContext()) {
    delete graph_;
    graph_ = nullptr;
    throw std::runtime_error("the 3D chart could not be created");
  }
  graph_->setObjectName(QStringLiteral("Chart3D"));
  graph_->activeTheme()->setType(Q3DTheme::ThemeQt);
  graph_->setShadowQuality(QAbstract3DGraph::ShadowQualityNone);
  // Both horizontal axes as long as each other, whatever their ranges.
  graph_->setHorizontalAspectRatio(1.0f);
  graph_->setAxisX(new QValue3DAxis);
  graph_->setAxisY(new QValue3DAxis);
  graph_->setAxisZ(new QValue3DAxis);
  for (QValue3DAxis* a : {graph_->axisX(), graph_->axisY(), graph_->axisZ()}) {
    a->setTitleVisible(true);
    a->setLabelFormat(QStringLiteral("%.4g"));
  }
  series_ = new QSurface3DSeries;
  series_->setDrawMode(QSurface3DSeries::DrawSurfaceAndWireframe);
  series_->setFlatShadingEnabled(false);
  QLinearGradient gr;
  gr.setColorAt(0.0, QColor(30, 60, 200));
  gr.setColorAt(0.35, QColor(40, 190, 200));
  gr.setColorAt(0.65, QColor(230, 220, 60));
  gr.setColorAt(1.0, QColor(210, 40, 30));
  series_->setBaseGradient(gr);
  series_->setColorStyle(Q3DTheme::ColorStyleRangeGradient);
  graph_->addSeries(series_);
  QWidget* container = QWidget::createWindowContainer(graph_, this);
  container->setMinimumSize(400, 300);
  container->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);

  // The bounds with their labels, the grid size, the gap search and the commands.
  auto* grenzen = new QGridLayout;
  for (int k = 0; k < 6; ++k) {
    lblGrenze_[k] = new QLabel(this);
    txtGrenze_[k] = new QLineEdit(this);
    txtGrenze_[k]->setObjectName(QStringLiteral("txtGrenze%1").arg(k));
    txtGrenze_[k]->setMaximumWidth(90);
    grenzen->addWidget(lblGrenze_[k], 0, k);
    grenzen->addWidget(txtGrenze_[k], 1, k);
  }
  auto* cmdGrenzen = Knopf(QStringLiteral("Bounds OK"), QStringLiteral("cmdGrenzen"), this);
  grenzen->addWidget(cmdGrenzen, 1, 6);
  auto* zeile = new QHBoxLayout;
  zeile->addWidget(new QLabel(QStringLiteral("grid"), this));
  txtNX_ = new QSpinBox(this);
  txtNY_ = new QSpinBox(this);
  txtNX_->setObjectName(QStringLiteral("txtNX"));
  txtNY_->setObjectName(QStringLiteral("txtNY"));
  for (QSpinBox* b : {txtNX_, txtNY_}) b->setRange(peq::kGitter3DMin, peq::kGitter3DMax);
  zeile->addWidget(txtNX_);
  zeile->addWidget(new QLabel(QStringLiteral("x"), this));
  zeile->addWidget(txtNY_);
  chkGap_ = new QCheckBox(QStringLiteral("flat over a mixing gap"), this);
  chkGap_->setObjectName(QStringLiteral("chkGap"));
  zeile->addWidget(chkGap_);
  cmdDraw_ = Knopf(QStringLiteral("&Draw surface"), QStringLiteral("cmdDraw"), this);
  zeile->addWidget(cmdDraw_);
  zeile->addSpacing(16);
  txtSchnitt_ = new QLineEdit(this);
  txtSchnitt_->setObjectName(QStringLiteral("txtSchnitt"));
  txtSchnitt_->setMaximumWidth(80);
  zeile->addWidget(txtSchnitt_);
  cmdSchnittY_ = Knopf(QString(), QStringLiteral("cmdSchnittY"), this);
  cmdSchnittX_ = Knopf(QStringLiteral("Section at x2"), QStringLiteral("cmdSchnittX"), this);
  zeile->addWidget(cmdSchnittY_);
  zeile->addWidget(cmdSchnittX_);
  zeile->addStretch(1);
  auto* bild = Knopf(QStringLiteral("Write image file"), QStringLiteral("mnuBildDatei"), this);
  auto* clip = Knopf(QStringLiteral("to the Clipboard"), QStringLiteral("mnuBildClipboard"), this);
  zeile->addWidget(bild);
  zeile->addWidget(clip);
  auto* speichern = Knopf(QStringLiteral("Save diagram"), QStringLiteral("mnuSaveOC3"), this);
  auto* laden = Knopf(QStringLiteral("Load diagram"), QStringLiteral("mnuLoadOC3"), this);
  zeile->addWidget(speichern);
  zeile->addWidget(laden);
  lblStatus_ = new QLabel(this);
  lblStatus_->setObjectName(QStringLiteral("lblStatus"));

  auto* v = new QVBoxLayout(this);
  v->addLayout(grenzen);
  v->addLayout(zeile);
  v->addWidget(container, 1);
  v->addWidget(lblStatus_);

  connect(cmdGrenzen, &QPushButton::clicked, this, [this] { GrenzenUebernehmen(); });
  connect(cmdDraw_, &QPushButton::clicked, this, [this] {
    const int nx = txtNX_->value(), ny = txtNY_->value();
    const bool gap = chkGap_->isChecked();
    if (!GrenzenUebernehmen()) return;
    std::string m;
    if (!g_.Gittergroesse(nx, ny, m)) {
      f_.ui.MsgBox("WARNING", m, peq::MsgIcon::Warning);
      return;
    }
    g_.chkGap = gap;
    Do([this] { g_.cmdDraw_Click(f_); });
  });
  connect(cmdSchnittY_, &QPushButton::clicked, this, [this] { Schnitt(true); });
  connect(cmdSchnittX_, &QPushButton::clicked, this, [this] { Schnitt(false); });
  connect(bild, &QPushButton::clicked, this, [this] { BildDatei(); });
  connect(clip, &QPushButton::clicked, this, [this] { BildInZwischenablage(); });
  connect(speichern, &QPushButton::clicked, this, [this] { Do([this] { g_.mnuSaveOC3_Click(f_); }); });
  connect(laden, &QPushButton::clicked, this, [this] { Do([this] { g_.mnuLoadOC3_Click(f_); }); });
  // The view as the user turns and zooms it, kept in the state.
  connect(graph_->scene()->activeCamera(), &Q3DCamera::xRotationChanged, this,
          [this](float r) { g_.Ansicht.Drehung = r; });
  connect(graph_->scene()->activeCamera(), &Q3DCamera::yRotationChanged, this,
          [this](float r) { g_.Ansicht.Neigung = r; });
  connect(graph_->scene()->activeCamera(), &Q3DCamera::zoomLevelChanged, this,
          [this](float z) { g_.Ansicht.Zoom = z; });
  Render();
}

Graph3DWindow::~Graph3DWindow() = default;

void Graph3DWindow::Cancel() { f_.Unload(peq::WindowId::frmGraph3D); }

bool Graph3DWindow::GrenzenUebernehmen() {
  peq::Grenzen3D b;
  float* ziel[6] = {&b.XMin, &b.XMax, &b.YMin, &b.YMax, &b.ZMin, &b.ZMax};
  std::string m;
  for (int k = 0; k < 6; ++k)
    if (!LiesZahl(txtGrenze_[k], *ziel[k])) m = peq::kGrenzenFehler;
  if (m.empty()) g_.cmdGrenzen_OK(b, m);
  if (!m.empty()) f_.ui.MsgBox("WARNING", m, peq::MsgIcon::Warning);
  Render();
  return m.empty();
}

void Graph3DWindow::Schnitt(bool beiY) {
  float v = 0;
  if (!LiesZahl(txtSchnitt_, v)) {
    f_.ui.MsgBox("WARNING", peq::kGrenzenFehler, peq::MsgIcon::Warning);
    return;
  }
  Do([this, beiY, v] {
    if (beiY)
      g_.SchnittZeigenY(f_, v);
    else
      g_.SchnittZeigenX(f_, v);
  });
}

void Graph3DWindow::Render() {
  setWindowTitle(Q(g_.Caption));
  graph_->setTitle(Q(g_.Aufbau.Titel));
  const float b[6] = {g_.Grenzen.XMin, g_.Grenzen.XMax, g_.Grenzen.YMin,
                      g_.Grenzen.YMax, g_.Grenzen.ZMin, g_.Grenzen.ZMax};
  for (int k = 0; k < 6; ++k) {
    lblGrenze_[k]->setText(Q(g_.Aufbau.GrenzText[static_cast<std::size_t>(k)]));
    if (!txtGrenze_[k]->hasFocus()) txtGrenze_[k]->setText(Zahl(b[k]));
  }
  txtNX_->setValue(g_.IXDim);
  txtNY_->setValue(g_.IYDim);
  chkGap_->setChecked(g_.chkGap);
  cmdSchnittY_->setText(g_.Aufbau.YIstTemperatur ? QStringLiteral("Section at T") : QStringLiteral("Section at p"));
  graph_->axisX()->setTitle(Q(g_.Aufbau.XAchse));
  graph_->axisZ()->setTitle(Q(g_.Aufbau.YAchse));
  graph_->axisY()->setTitle(Q(g_.Aufbau.ZAchse));
  graph_->axisX()->setRange(g_.Grenzen.XMin, g_.Grenzen.XMax);
  graph_->axisZ()->setRange(g_.Grenzen.YMin, g_.Grenzen.YMax);
  if (g_.Grenzen.ZMin != peq::kOhneZMin && g_.Grenzen.ZMax != peq::kOhneZMax && g_.Grenzen.ZMin < g_.Grenzen.ZMax)
    graph_->axisY()->setRange(g_.Grenzen.ZMin, g_.Grenzen.ZMax);
  else
    graph_->axisY()->setAutoAdjustRange(true);
  Q3DCamera* cam = graph_->scene()->activeCamera();
  cam->setCameraPosition(g_.Ansicht.Drehung, g_.Ansicht.Neigung, g_.Ansicht.Zoom);
  RenderDaten();
  lblStatus_->setText(Q(g_.Status));
}

void Graph3DWindow::RenderDaten() {
  QElapsedTimer t;
  t.start();
  auto* rows = new QSurfaceDataArray;
  const peq::Feld3D& f = g_.ResFeld;
  if (g_.Gezeichnet && f.IXDim() >= 2 && f.IYDim() >= 2) {
    rows->reserve(f.IYDim());
    for (int j = 1; j <= f.IYDim(); ++j) {
      auto* row = new QSurfaceDataRow(f.IXDim());
      const float y = static_cast<float>(peq::GitterY(g_.Grenzen, f.IYDim(), j));
      for (int i = 1; i <= f.IXDim(); ++i) {
        const float z = f(i, j);
        // A hole is handed to the chart as "no value", which it leaves out.
        const float h = z == peq::kLoch3D ? std::numeric_limits<float>::quiet_NaN() : z;
        (*row)[i - 1].setPosition(QVector3D(static_cast<float>(peq::GitterX(g_.Grenzen, f.IXDim(), i)), h, y));
      }
      rows->append(row);
    }
  }
  series_->dataProxy()->resetArray(rows);
  zeichenMs_ = static_cast<double>(t.nsecsElapsed()) / 1e6;
}

int Graph3DWindow::GezeigteZeilen() const { return series_->dataProxy()->rowCount(); }
int Graph3DWindow::GezeigteSpalten() const { return series_->dataProxy()->columnCount(); }

QImage Graph3DWindow::Bild(const QSize& size) const { return graph_->renderToImage(4, size); }

bool Graph3DWindow::SpeicherePng(const QString& file, const QSize& size) const {
  const QImage img = Bild(size.isValid() ? size : QSize(900, 700));
  return !img.isNull() && img.save(file, "PNG");
}

void Graph3DWindow::BildInZwischenablage() const {
  const QImage img = Bild(QSize(900, 700));
  if (!img.isNull()) QGuiApplication::clipboard()->setImage(img);
}

void Graph3DWindow::BildDatei() {
  const QString file = QFileDialog::getSaveFileName(this, QStringLiteral("Write image file"), QString(),
                                                    QStringLiteral("PNG image (*.png)"));
  if (file.isEmpty()) return;
  if (!SpeicherePng(file))
    f_.ui.MsgBox("Error", "The image file could not be written.", peq::MsgIcon::Stop, peq::Buttons::Ok);
}

}  // namespace pequi
