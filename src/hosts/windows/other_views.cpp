// SPDX-License-Identifier: GPL-2.0-or-later
// Frames, images and timers.
#include <QPainter>
#include <QSizeGrip>
#include <QStyle>
#include <QTimer>

#include "hosts/windows/colors.h"
#include "hosts/windows/control_view.h"
#include "hosts/windows/form_window.h"
#include "hosts/windows/pictures.h"

namespace tessarine {
namespace {

/// A border with its caption in the upper line; without a caption the border runs all around.
class FrameWidget final : public QWidget {
 public:
  using QWidget::QWidget;
  QString caption;

 protected:
  void paintEvent(QPaintEvent*) override {
    constexpr int kIndent = 8, kGap = 3;
    QPainter painter(this);
    const int text_width = fontMetrics().size(Qt::TextShowMnemonic, caption).width();
    const int line = caption.isEmpty() ? 0 : fontMetrics().height() / 2;
    QColor border = palette().color(QPalette::WindowText);
    border.setAlphaF(0.35);
    painter.setPen(border);
    if (!caption.isEmpty()) {
      painter.setClipRegion(QRegion(rect()) - QRegion(kIndent, 0, text_width + 2 * kGap, fontMetrics().height()));
    }
    painter.drawRect(0, line, width() - 1, height() - line - 1);
    painter.setClipping(false);
    style()->drawItemText(&painter, QRect(kIndent + kGap, 0, text_width, fontMetrics().height()),
                          int{Qt::TextShowMnemonic} | int{Qt::AlignLeft}, palette(), isEnabled(), caption,
                          QPalette::WindowText);
  }
};

class FrameView final : public ControlView {
 public:
  FrameView(FormWindow& window, Frame& frame, QWidget& parent)
      : ControlView(window, frame, new FrameWidget(&parent)), frame_(frame) {}

 private:
  void UpdateContent() override {
    auto& widget = *static_cast<FrameWidget*>(Widget());
    widget.caption = Window().CaptionOf(frame_);
    widget.update();
  }

  Frame& frame_;
};

/// A picture; without one the bar of a frame, or a line where it is thin.
class ImageWidget final : public QWidget {
 public:
  using QWidget::QWidget;
  std::int32_t picture = 0;
  QColor fill, behind, ink;
  bool line = false, bar = false;

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    if (picture != 0) {
      PictureOf(picture, behind)
          .paint(&painter, rect(), Qt::AlignCenter, isEnabled() ? QIcon::Normal : QIcon::Disabled);
    } else if (line) {
      painter.fillRect(0, height() / 2, width(), 1, ink);
    } else if (bar) {
      painter.fillRect(rect(), fill);
    }
  }
};

class ImageView final : public ControlView {
 public:
  ImageView(FormWindow& window, Image& image, QWidget& parent)
      : ControlView(window, image, new ImageWidget(&parent)), image_(image) {}

 private:
  void UpdateColors() override {}
  void UpdateContent() override {
    constexpr double kThickestLine = 2.0;
    auto& widget = *static_cast<ImageWidget*>(Widget());
    widget.picture = image_.ResourceId();
    widget.behind = Background();
    widget.ink = TextColorOn(widget.behind, kWindowText, Window().palette());
    widget.ink.setAlphaF(0.35);
    widget.line = image_.Height() <= kThickestLine;
    widget.bar = dynamic_cast<const Frame*>(&image_.Container()) != nullptr;
    widget.fill = IsExplicitColor(image_.BackColor()) ? ColorOf(image_.BackColor(), Window().palette())
                                                      : Window().palette().color(QPalette::Active, QPalette::Highlight);
    widget.update();
  }

  Image& image_;
};

/// The picture in the far corner, with which the window is resized.
class CornerView final : public ControlView {
 public:
  CornerView(FormWindow& window, Image& image, QWidget& parent) : ControlView(window, image, new QSizeGrip(&parent)) {}

 private:
  void UpdateColors() override {}
};

class TimerView final : public ControlView {
 public:
  TimerView(FormWindow& window, Timer& control) : ControlView(window, control, nullptr), control_(control) {
    connect(&timer_, &QTimer::timeout, this, [this] {
      Tell([this] {
        if (control_.Enabled() && control_.Tick) control_.Tick();
      });
    });
  }

 private:
  void UpdateContent() override {
    if (control_.Enabled() && control_.Interval > 0) {
      if (!timer_.isActive() || timer_.interval() != control_.Interval) timer_.start(control_.Interval);
    } else {
      timer_.stop();
    }
  }

  Timer& control_;
  QTimer timer_;
};

}  // namespace

std::unique_ptr<ControlView> MakeFrameView(FormWindow& window, Frame& frame, QWidget& parent) {
  return std::make_unique<FrameView>(window, frame, parent);
}

std::unique_ptr<ControlView> MakeImageView(FormWindow& window, Image& image, QWidget& parent) {
  if (image.ResourceId() == kCornerPicture) return std::make_unique<CornerView>(window, image, parent);
  return std::make_unique<ImageView>(window, image, parent);
}

std::unique_ptr<ControlView> MakeTimerView(FormWindow& window, Timer& timer) {
  return std::make_unique<TimerView>(window, timer);
}

}  // namespace tessarine
