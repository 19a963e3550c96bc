#include <utility>

#include "ui/video_surface.h"

#ifdef CUEWRIGHT_OPENGL
#include <QOpenGLContext>
#include <QOpenGLWidget>
#endif

namespace cuewright {

#ifdef CUEWRIGHT_OPENGL
namespace {

void* AddressInContext(void*, const char* name) {
  const QOpenGLContext* context = QOpenGLContext::currentContext();
  return context ? reinterpret_cast<void*>(context->getProcAddress(name)) : nullptr;
}

class GlSurface final : public QOpenGLWidget {
 public:
  GlSurface(VideoFrames& frames, QWidget* parent, std::function<void()> failed)
      : QOpenGLWidget(parent), frames_(frames), failed_(std::move(failed)) {
    DressAsPicture(*this);
    ready_ = frames_.FrameReady.ConnectScoped([this] { update(); });
  }

  ~GlSurface() override { EndDrawing(); }

 protected:
  void initializeGL() override {
    drawing_ = frames_.CreateGl(&AddressInContext, nullptr);
    if (drawing_) {
      // The context goes when the window moves to another top level; a player drawing on would crash.
      connect(context(), &QOpenGLContext::aboutToBeDestroyed, this, [this] { EndDrawing(); });
    } else if (failed_) {
      QMetaObject::invokeMethod(this, std::exchange(failed_, nullptr), Qt::QueuedConnection);
    }
  }

  void paintGL() override {
    const QSize size = (QSizeF(this->size()) * devicePixelRatioF()).toSize();
    if (drawing_) frames_.RenderGl(static_cast<int>(defaultFramebufferObject()), size.width(), size.height());
  }

 private:
  void EndDrawing() {
    if (!std::exchange(drawing_, false)) return;
    makeCurrent();
    frames_.DestroyGl();
    doneCurrent();
  }

  VideoFrames& frames_;
  std::function<void()> failed_;
  bool drawing_ = false;
  Connection ready_;
};

}  // namespace

QWidget* MakeGlSurface(VideoFrames& frames, QWidget* parent, std::function<void()> failed) {
  return new GlSurface(frames, parent, std::move(failed));
}
#else
// NOLINTNEXTLINE(performance-unnecessary-value-param): the build with OpenGL keeps what it is given.
QWidget* MakeGlSurface(VideoFrames&, QWidget*, std::function<void()>) { return nullptr; }
#endif

}  // namespace cuewright
