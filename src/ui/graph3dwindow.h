// The 3D diagram window: renders the grid of frmGraph3D as a Q3DSurface (colour gradient by
// height, axis titles and ranges, rotation and zoom with the mouse) and forwards the user's
// actions (bounds, grid size, mixing-gap search, draw, sections, image) to the window state.
// When the 3D chart cannot be created (no OpenGL) the constructor throws, and the frame's
// command tells the user.
#pragma once

#include <QImage>
#include <QString>
#include <array>

#include "ui/statedialog.h"
#include "windows/graph3d.h"

class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QSpinBox;
class QSurface3DSeries;
class Q3DSurface;

namespace pequi {

class Graph3DWindow : public StateDialog {
  Q_OBJECT
 public:
  Graph3DWindow(peq::mdiPEQ& f, peq::frmGraph3D& g, QWidget* parent);
  ~Graph3DWindow() override;
  void Render() override;

  QPushButton* cmdDraw() const { return cmdDraw_; }
  Q3DSurface* Surface() const { return graph_; }
  // Points of the surface shown (rows x columns), 0 when none.
  int GezeigteZeilen() const;
  int GezeigteSpalten() const;
  // The surface as an image through the chart's own renderer.
  QImage Bild(const QSize& size = QSize()) const;
  bool SpeicherePng(const QString& file, const QSize& size = QSize()) const;
  void BildInZwischenablage() const;
  // Milliseconds from the end of the last calculation until the surface was handed to the chart.
  double ZeichenMs() const { return zeichenMs_; }

 protected:
  void Cancel() override;

 private:
  // Takes the six bound fields; false (with the box shown) when they are refused.
  bool GrenzenUebernehmen();
  void Schnitt(bool beiY);
  void BildDatei();
  void RenderDaten();

  peq::frmGraph3D& g_;
  Q3DSurface* graph_ = nullptr;
  QSurface3DSeries* series_ = nullptr;
  std::array<QLabel*, 6> lblGrenze_{};
  std::array<QLineEdit*, 6> txtGrenze_{};
  QSpinBox* txtNX_ = nullptr;
  QSpinBox* txtNY_ = nullptr;
  QCheckBox* chkGap_ = nullptr;
  QPushButton* cmdDraw_ = nullptr;
  QLineEdit* txtSchnitt_ = nullptr;
  QPushButton* cmdSchnittY_ = nullptr;
  QPushButton* cmdSchnittX_ = nullptr;
  QLabel* lblStatus_ = nullptr;
  double zeichenMs_ = 0;
};

}  // namespace pequi
