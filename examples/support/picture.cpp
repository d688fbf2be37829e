#include "picture.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "program.h"

namespace support {

namespace {

// File names may hold any bytes, but cairo takes valid UTF-8 only: every byte of anything else becomes "?".
std::string printable(const std::string& raw)
{
    std::string result;
    for (size_t i = 0; i < raw.size();) {
        const auto byte = [&](size_t k) { return static_cast<unsigned char>(k < raw.size() ? raw[k] : 0); };
        const unsigned char lead = byte(i);
        const size_t length = lead < 0x80                   ? 1
                              : lead >= 0xc2 && lead < 0xe0 ? 2
                              : (lead & 0xf0) == 0xe0       ? 3
                              : lead >= 0xf0 && lead < 0xf5 ? 4
                                                            : 0;
        bool valid = length > 0 && lead >= 0x20 && lead != 0x7f;
        for (size_t k = 1; k < length; k++)
            valid = valid && (byte(i + k) & 0xc0) == 0x80;
        // Overlong forms, surrogates, and what lies beyond the last code point.
        if ((lead == 0xe0 && byte(i + 1) < 0xa0) || (lead == 0xed && byte(i + 1) > 0x9f) ||
            (lead == 0xf0 && byte(i + 1) < 0x90) || (lead == 0xf4 && byte(i + 1) > 0x8f))
            valid = false;
        result += valid ? raw.substr(i, length) : "?";
        i += valid ? length : 1;
    }
    return result;
}

// The first and the last `keep` characters with an ellipsis between.
std::string shortened(const std::string& text, size_t keep)
{
    const auto isStart = [&](size_t i) { return (static_cast<unsigned char>(text[i]) & 0xc0) != 0x80; };
    size_t head = 0, tail = text.size();
    for (size_t count = 0; head < text.size() && (count += isStart(head)) <= keep;)
        head++;
    for (size_t count = 0; tail > head && count < keep;)
        count += isStart(--tail);
    return text.substr(0, head) + "\u2026" + text.substr(tail);
}

} // namespace

Colour colours::series(size_t n)
{
    static constexpr std::array<Colour, 6> row{{{0.18, 0.45, 0.71},
                                                {0.90, 0.55, 0.13},
                                                {0.20, 0.60, 0.42},
                                                {0.53, 0.37, 0.73},
                                                {0.10, 0.62, 0.68},
                                                {0.56, 0.52, 0.20}}};
    return row[n % row.size()];
}

Picture::Picture(int width, int height)
    : width_(width), height_(height), surface_(cairo_image_surface_create(CAIRO_FORMAT_RGB24, width, height)),
      pen_(cairo_create(surface_.get()))
{
    fill({0, 0, static_cast<double>(width), static_cast<double>(height)}, colours::white);
}

void Picture::use(Colour colour)
{
    cairo_set_source_rgba(pen(), colour.red, colour.green, colour.blue, colour.alpha);
}

void Picture::fill(Box box, Colour colour)
{
    use(colour);
    cairo_rectangle(pen(), box.x, box.y, box.width, box.height);
    cairo_fill(pen());
}

void Picture::line(double x1, double y1, double x2, double y2, Colour colour, double thickness)
{
    use(colour);
    cairo_set_line_width(pen(), thickness);
    cairo_move_to(pen(), x1, y1);
    cairo_line_to(pen(), x2, y2);
    cairo_stroke(pen());
}

void Picture::dot(double x, double y, double radius, Colour colour)
{
    use(colour);
    cairo_new_path(pen());
    cairo_arc(pen(), x, y, radius, 0, 7);
    cairo_fill(pen());
}

void Picture::paint(int x, int y, int width, int height, const std::function<Colour(int x, int y)>& colour)
{
    cairo_surface_flush(surface_.get());
    unsigned char* data = cairo_image_surface_get_data(surface_.get());
    const std::ptrdiff_t stride = cairo_image_surface_get_stride(surface_.get());
    const auto byte = [](double part) { return static_cast<std::uint32_t>(std::lround(part * 255)); };
    for (int row = 0; row < height; row++)
        for (int i = 0; i < width; i++) {
            const Colour c = colour(i, row);
            const std::uint32_t pixel = byte(c.red) << 16 | byte(c.green) << 8 | byte(c.blue);
            std::memcpy(data + stride * (y + row) + std::ptrdiff_t{4} * (x + i), &pixel, 4);
        }
    cairo_surface_mark_dirty(surface_.get());
}

double Picture::write(double x, double y, const std::string& raw, double size, Colour colour, Align align,
                      bool bold, double limit)
{
    cairo_select_font_face(pen(), "sans", CAIRO_FONT_SLANT_NORMAL,
                           bold ? CAIRO_FONT_WEIGHT_BOLD : CAIRO_FONT_WEIGHT_NORMAL);
    cairo_set_font_size(pen(), size);
    const auto extent = [&](const std::string& s) {
        cairo_text_extents_t extents;
        cairo_text_extents(pen(), s.c_str(), &extents);
        return extents.x_advance;
    };
    std::string words = printable(raw);
    for (size_t keep = std::min<size_t>(words.size() / 2, 80); keep > 0 && extent(words) > limit; keep--)
        words = shortened(printable(raw), keep);
    const double width = extent(words);
    use(colour);
    cairo_move_to(pen(), align == Align::left ? x : align == Align::right ? x - width : x - width / 2, y);
    cairo_show_text(pen(), words.c_str());
    return width;
}

void Picture::save(const OutputFile& file)
{
    cairo_status_t status = cairo_status(pen());
    if (status == CAIRO_STATUS_SUCCESS)
        status = cairo_surface_write_to_png(surface_.get(), file.temporaryPath().c_str());
    if (status != CAIRO_STATUS_SUCCESS)
        throw Failure(text("%s: cannot write: %s", file.path().c_str(), cairo_status_to_string(status)));
}

std::vector<Tick> timeTicks(double seconds, int atMost)
{
    if (!(seconds > 0))
        return {{0, "0 s"}};
    static constexpr std::array<double, 11> sexagesimal{10, 15, 30, 60, 120, 300, 600, 900, 1800, 3600, 7200};
    double step = 1e-6;
    for (int k = 0; seconds / step > atMost && step < 5; k++)
        step *= k % 3 == 1 ? 2.5 : 2;
    if (seconds / step > atMost)
        step = *std::find_if(sexagesimal.begin(), sexagesimal.end() - 1,
                             [&](double s) { return seconds / s <= atMost; });
    while (seconds / step > atMost)
        step *= 2;
    std::vector<Tick> ticks;
    for (int k = 0; k * step <= seconds * (1 + 1e-9); k++) {
        const double time = k * step;
        const long long whole = std::llround(time);
        std::string label;
        if (seconds < 0.5)
            label = text("%.*f ms", step < 1e-5 ? 3 : step < 1e-4 ? 2 : step < 1e-3 ? 1 : 0, time * 1000);
        else if (seconds < 60)
            label = text("%.*f s", step < 0.1 ? 2 : step < 1 ? 1 : 0, time);
        else if (seconds < 3600)
            label = text("%lld:%02lld", whole / 60, whole % 60);
        else
            label = text("%lld:%02lld:%02lld", whole / 3600, whole / 60 % 60, whole % 60);
        ticks.push_back({time / seconds, label});
    }
    return ticks;
}

void drawGrid(Picture& picture, Box box, const std::vector<Tick>& ticks)
{
    for (const Tick& tick : ticks) {
        const double x = std::floor(box.x + tick.place * box.width) + 0.5;
        picture.line(x, box.y, x, box.bottom(), colours::grid);
    }
}

void drawTimeLabels(Picture& picture, Box box, const std::vector<Tick>& ticks)
{
    for (const Tick& tick : ticks) {
        const double x = std::floor(box.x + tick.place * box.width) + 0.5;
        picture.line(x, box.bottom(), x, box.bottom() + 6, colours::grey);
        picture.write(x, box.bottom() + 22, tick.label, 13, colours::grey, Align::centre);
    }
}

void drawValueAxis(Picture& picture, Box box, const std::vector<Tick>& ticks)
{
    for (const Tick& tick : ticks) {
        const double y =
            std::clamp(std::floor(box.bottom() - tick.place * box.height), box.y, box.bottom() - 1) + 0.5;
        picture.line(box.x, y, box.right(), y, colours::grid);
        picture.write(box.x - 8, y + 4, tick.label, 12, colours::grey, Align::right);
    }
}

void drawWaveform(Picture& picture, Box box, const Envelope& envelope, double range, Colour colour,
                  bool marked)
{
    const std::vector<Column>& columns = envelope.columns();
    const double step = box.width / static_cast<double>(std::max<size_t>(columns.size(), 1));
    const size_t used = static_cast<size_t>(
        std::find_if(columns.begin(), columns.end(), [](const Column& c) { return c.samples == 0; }) -
        columns.begin());
    if (used == 0)
        return;
    cairo_t* pen = picture.pen();
    const auto height = [&](double value) { return box.y + box.height / 2 * (1 - value / range); };
    const auto outline = [&](auto low, auto high) {
        cairo_new_path(pen);
        for (size_t k = 0; k < used; k++)
            cairo_line_to(pen, box.x + step * (static_cast<double>(k) + 0.5), height(high(columns[k])));
        for (size_t k = used; k-- > 0;)
            cairo_line_to(pen, box.x + step * (static_cast<double>(k) + 0.5), height(low(columns[k])));
        cairo_close_path(pen);
    };
    const auto paint = [&](Colour light, Colour deep) {
        // The outline is stroked too, so that a single line (one sample a column) is seen as one.
        outline([](const Column& c) { return c.low; }, [](const Column& c) { return c.high; });
        picture.use(light);
        cairo_set_line_width(pen, 1);
        cairo_set_line_join(pen, CAIRO_LINE_JOIN_ROUND);
        cairo_fill_preserve(pen);
        cairo_stroke(pen);
        if (step > 1)
            return;
        outline([](const Column& c) { return std::max<double>(-c.rms(), c.low); },
                [](const Column& c) { return std::min<double>(c.rms(), c.high); });
        picture.use(deep);
        cairo_fill(pen);
    };
    cairo_save(pen);
    cairo_rectangle(pen, box.x, box.y, box.width, box.height);
    cairo_clip(pen);
    paint(step > 1 ? colour : colour.faded(0.5), colour);
    if (marked && envelope.peak() > 1) {
        cairo_rectangle(pen, box.x, box.y, box.width, height(1) - box.y);
        cairo_rectangle(pen, box.x, height(-1), box.width, box.bottom() - height(-1));
        cairo_clip(pen);
        paint(colours::alarm, colours::alarm);
    }
    cairo_restore(pen);
    for (size_t k = 0; marked && k < used; k++)
        if (columns[k].clipped > 0) {
            const double width = std::max(step, 2.0),
                         x = box.x + step * (static_cast<double>(k) + 0.5) - width / 2;
            picture.fill({x, box.y - 6, width, 5}, colours::alarm);
            picture.fill({x, box.y, width, box.height}, colours::alarm.faded(0.12));
        }
}

} // namespace support
