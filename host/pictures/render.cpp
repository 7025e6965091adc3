#include "render.h"

#include <sys/stat.h>
#include <unistd.h>

#include <QApplication>
#include <QBuffer>
#include <QFontInfo>
#include <QPainter>
#include <QRegularExpression>
#include <QSvgGenerator>
#include <cerrno>
#include <cmath>
#include <fstream>

#include "qt/panel_widget.h"

namespace zvhost {

namespace {

// Widgets need an application; a script run has none. The one made here
// stays for the process, so later pictures don't start Qt again.
bool ensureApplication(std::string& error) {
  if (QCoreApplication::instance() != nullptr) {
    if (qobject_cast<QApplication*>(QCoreApplication::instance()))
      return true;
    error = "pictures need a widget application";
    return false;
  }
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
    qputenv("QT_QPA_PLATFORM", "offscreen");
  // Without a runtime folder Qt warns on every start; a private one keeps stderr clean.
  if (qEnvironmentVariableIsEmpty("XDG_RUNTIME_DIR")) {
    QByteArray dir = "/tmp/zelvor-runtime-" + QByteArray::number(getuid());
    if (mkdir(dir.constData(), 0700) == 0 || errno == EEXIST)
      qputenv("XDG_RUNTIME_DIR", dir);
  }
  static int argc = 1;
  static char name[] = "zelvor-host";
  static char* argv[] = {name, nullptr};
  new QApplication(argc, argv);
  return true;
}

QSize scaled(QSize size, double scale) {
  return QSize(static_cast<int>(std::ceil(size.width() * scale)),
               static_cast<int>(std::ceil(size.height() * scale)));
}

const QWidget::RenderFlags kWhole = QWidget::DrawWindowBackground | QWidget::DrawChildren;

} // namespace

QImage panelImage(zv::ComponentObject& component, double scale) {
  zvqt::PanelWidget panel(component);
  QImage image(scaled(panel.size(), scale), QImage::Format_ARGB32_Premultiplied);
  image.setDevicePixelRatio(scale);
  image.fill(Qt::transparent);
  panel.render(&image, QPoint(), QRegion(), kWhole);
  image.setDevicePixelRatio(1);
  // An opaque panel is written without an alpha channel.
  return component.panelSurface().BackStyle() != 0 ? image.convertToFormat(QImage::Format_RGB32)
                                                   : image.convertToFormat(QImage::Format_ARGB32);
}

std::string panelSvg(zv::ComponentObject& component, double scale) {
  zvqt::PanelWidget panel(component);
  QBuffer buffer;
  buffer.open(QIODevice::WriteOnly);
  QSvgGenerator svg;
  svg.setOutputDevice(&buffer);
  svg.setResolution(96); // a window's pixel is a CSS pixel
  svg.setSize(scaled(panel.size(), scale));
  svg.setViewBox(QRect(QPoint(), panel.size()));
  {
    QPainter painter(&svg);
    panel.render(&painter, QPoint(), QRegion(), kWhole);
  }
  // Qt names the font by its own alias of a face; viewers know the face and
  // the generic family.
  const QString face = QFontInfo(panel.font()).family().toHtmlEscaped();
  return QString::fromUtf8(buffer.data())
      .replace(QRegularExpression("font-family=\"[^\"]*\""),
               "font-family=\"" + face + ", sans-serif\"")
      .toStdString();
}

bool renderPanel(zv::ComponentObject& component, const std::string& path, std::string& error,
                 double scale) {
  const auto endsWith = [&](const std::string& ext) {
    return path.size() >= ext.size() &&
           path.compare(path.size() - ext.size(), ext.size(), ext) == 0;
  };
  const bool svg = endsWith(".svg");
  if (!svg && !endsWith(".png")) {
    error = "unknown picture type (use .svg or .png): " + path;
    return false;
  }
  if (!(scale >= kMinScale && scale <= kMaxScale)) {
    error = "the scale must be from 0.25 to 8";
    return false;
  }
  if (!ensureApplication(error))
    return false;
  if (svg) {
    std::ofstream out(path, std::ios::binary);
    out << panelSvg(component, scale);
    out.close();
    if (!out) {
      error = "cannot write " + path;
      return false;
    }
    return true;
  }
  if (!panelImage(component, scale).save(QString::fromStdString(path), "PNG")) {
    error = "cannot write " + path;
    return false;
  }
  return true;
}

} // namespace zvhost
