// Pictures: a thin layer over cairo, and the pieces that all diagrams share.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <cairo.h>

#include "envelope.h"
#include "outputFile.h"

namespace support {

struct Colour {
    double red, green, blue, alpha = 1;

    Colour faded(double factor) const { return {red, green, blue, alpha * factor}; }
};

namespace colours {
constexpr Colour ink{0.13, 0.17, 0.23};
constexpr Colour grey{0.42, 0.46, 0.52};
constexpr Colour grid{0.84, 0.86, 0.89};
constexpr Colour lane{0.965, 0.97, 0.98};
constexpr Colour alarm{0.85, 0.11, 0.14};
constexpr Colour white{1, 1, 1};
/// The n-th of a row of colours that are told apart easily; none resembles the alarm.
Colour series(size_t n);
} // namespace colours

struct Box {
    double x, y, width, height;

    double right() const { return x + width; }
    double bottom() const { return y + height; }
};

/// A mark of an axis: its place from 0 (start) to 1 (end), and what is written there.
struct Tick {
    double place;
    std::string label;
};

enum class Align { left, centre, right };

class Picture {
  public:
    /// A white picture; its sides are limited to 32767 by cairo.
    Picture(int width, int height);

    int width() const { return width_; }
    int height() const { return height_; }
    cairo_t* pen() { return pen_.get(); }

    void use(Colour colour);
    void fill(Box box, Colour colour);
    void line(double x1, double y1, double x2, double y2, Colour colour, double thickness = 1);
    void dot(double x, double y, double radius, Colour colour);
    /// Colours every pixel of a rectangle by a function of its place, counted from the rectangle's upper left corner.
    void paint(int x, int y, int width, int height, const std::function<Colour(int x, int y)>& colour);
    /// Writes text with its base line at y; returns its width. Text wider than `limit` is shortened in its
    /// middle.
    double write(double x, double y, const std::string& text, double size, Colour colour,
                 Align align = Align::left, bool bold = false, double limit = 1e9);
    /// Writes the picture as PNG; `file` still wants its commit().
    void save(const OutputFile& file);

  private:
    struct Destroy {
        void operator()(cairo_t* pen) const { cairo_destroy(pen); }
        void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
    };
    int width_, height_;
    std::unique_ptr<cairo_surface_t, Destroy> surface_;
    std::unique_ptr<cairo_t, Destroy> pen_;
};

/// Round times from 0 to `seconds`, at most `atMost` of them.
std::vector<Tick> timeTicks(double seconds, int atMost);

/// Vertical grid lines across a box.
void drawGrid(Picture& picture, Box box, const std::vector<Tick>& ticks);
/// The labels of a time axis below a box.
void drawTimeLabels(Picture& picture, Box box, const std::vector<Tick>& ticks);
/// The labels of a value axis to the left of a box (place 0 is its bottom), with grid lines across it.
void drawValueAxis(Picture& picture, Box box, const std::vector<Tick>& ticks);
/// An outline within a box that shows values from -range to range, the root mean square in a deeper shade;
/// where `marked`, what lies beyond full scale is red, and columns with clipped samples bear a mark above the
/// box.
void drawWaveform(Picture& picture, Box box, const Envelope& envelope, double range, Colour colour,
                  bool marked);

} // namespace support
