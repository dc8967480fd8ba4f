#include <benchmark/benchmark.h>

#include <QGuiApplication>
#include <cmath>

#include "processing/PreparePlot.h"
#include "render/ReplaySurface.h"
#include "render/Trace.h"
#include "render/grid/CircularGrid.h"
#include "render/qt/ImageSurface.h"

namespace lobegraph {
namespace {

constexpr Colour kBackground{224, 224, 224};

/// The toolkit's fonts need an application, without a screen.
void StartToolkit() {
  static int argc = 1;
  static char name[] = "lobegraph_benchmarks";
  static char* argv[] = {name, nullptr};
  qputenv("QT_QPA_PLATFORM", "offscreen");
  static const QGuiApplication application(argc, argv);
}

/// A beam with minor lobes, one reading a degree.
ReadingsRecord Beam() {
  ReadingsRecord record;
  record.NumReadings = 359;
  record.ReadingCount = 360;
  for (int degrees = 0; degrees < 360; ++degrees) {
    const double angle = degrees * 0.0174532925199433;
    record.Readings(degrees) =
        static_cast<float>(20.0 + 900.0 * std::abs(std::cos(angle / 2.0) * std::cos(2.5 * angle)));
  }
  return record;
}

QSize Size(const benchmark::State& state) { return {static_cast<int>(state.range(0)), 560}; }
double Ratio(const benchmark::State& state) { return static_cast<double>(state.range(1)) / 100.0; }

/// What a window's paint event does with the touched rectangle.
void Repaint(QImage& window, const QRect& rectangle, const QImage& picture) {
  const qreal ratio = picture.devicePixelRatio();
  QPainter painter(&window);
  painter.drawImage(QRectF(rectangle), picture,
                    QRectF(QPointF(rectangle.topLeft()) * ratio, QSizeF(rectangle.size()) * ratio));
}

/// The smallest that any redraw can cost: each pixel of the picture written once.
void FillPicture(benchmark::State& state) {
  StartToolkit();
  ImageSurface surface(Size(state), Ratio(state), kBackground);
  QImage picture = surface.Picture().copy();
  for (auto _ : state) {
    picture.fill(0xFFE0E0E0U);
    benchmark::DoNotOptimize(picture.bits());
  }
}

/// From 360 readings to the finished picture: logarithmic circle with labels, trace and -3 dB lines, kept for
/// a page as the window keeps it.
void ReDraw(benchmark::State& state) {
  StartToolkit();
  ImageSurface surface(Size(state), Ratio(state), kBackground);
  ReplaySurface kept(surface);
  Plotter plotter(kept, PlotGeometry{});
  ReadingsRecord record = Beam();
  for (auto _ : state) {
    const PlotResult result = PreparePlot(record, {}, {}, {});
    DrawCircularGrid(plotter, {}, {});
    DrawTrace(plotter, result, {}, true);
    benchmark::DoNotOptimize(surface.Picture().constBits());
  }
}

/// One reading of a run: its line, kept for a page, and the rectangle that the window repaints.
void LivePoint(benchmark::State& state) {
  StartToolkit();
  ImageSurface surface(Size(state), Ratio(state), kBackground);
  QImage window = surface.Picture().copy();
  ReplaySurface kept(surface);
  Plotter plotter(kept, PlotGeometry{});
  const auto beginTurn = [&] {
    DrawCircularGrid(plotter, {}, {});
    surface.TakeTouched();
    StartTrace(plotter, {}, 0);
  };
  beginTurn();
  float degrees = 0;
  for (auto _ : state) {
    DrawTracePoint(plotter, degrees, 200.0F + std::fmod(degrees, 20.0F));
    const QRect touched = surface.TakeTouched();
    Repaint(window, touched, surface.Picture());
    if (++degrees < 360) continue;
    degrees = 0;
    state.PauseTiming();
    beginTurn();
    state.ResumeTiming();
  }
}

/// What the live point is measured against: repainting a rectangle of its size and nothing else.
void RepaintRectangle(benchmark::State& state) {
  StartToolkit();
  ImageSurface surface(Size(state), Ratio(state), kBackground);
  QImage window = surface.Picture().copy();
  for (auto _ : state) Repaint(window, {300, 100, 10, 8}, surface.Picture());
}

void Surfaces(benchmark::internal::Benchmark* benchmark) {
  benchmark->ArgNames({"width", "scale%"})->ArgsProduct({{501, 758}, {100, 200}});
  benchmark->Unit(benchmark::kMicrosecond)->Repetitions(5)->ReportAggregatesOnly();
}

BENCHMARK(FillPicture)->Apply(Surfaces);
BENCHMARK(ReDraw)->Apply(Surfaces);
BENCHMARK(RepaintRectangle)->Apply(Surfaces);
BENCHMARK(LivePoint)->Apply(Surfaces);

}  // namespace
}  // namespace lobegraph
