#include <csetjmp>
#include <cstddef>
#include <cstdio>
#include <jerror.h>

#include <jpeglib.h>

#include "platform/common/picture.h"

namespace platform::common
{
namespace
{

/// More passes than any camera or editor writes; each costs as much as decoding the whole picture.
constexpr int kMaxProgressiveScans = 100;

constexpr int kCmykComponents = 4;

struct ErrorHandler {
    jpeg_error_mgr base; ///< First, so that the library's pointer is also this one's.
    std::jmp_buf escape;
    bool endMarkerMissing;
};

[[noreturn]] void fail(j_common_ptr decoder)
{
    std::longjmp(reinterpret_cast<ErrorHandler *>(decoder->err)->escape, 1);
}

/// Whether nothing of a picture's pixels has been read yet.
bool isBeforePixels(j_common_ptr decoder)
{
    return reinterpret_cast<j_decompress_ptr>(decoder)->input_scan_number == 0;
}

/// Negative levels are warnings: mostly of damaged or missing data, for which the library would fill in grey.
/// Stray bytes between the segments before that, and the end of the file, harm no pixel by themselves.
void failOnDamage(j_common_ptr decoder, int level)
{
    if (level >= 0)
        return;
    const int warning = decoder->err->msg_code;
    if (warning == JWRN_JPEG_EOF)
        reinterpret_cast<ErrorHandler *>(decoder->err)->endMarkerMissing = true;
    else if (warning != JWRN_EXTRANEOUS_DATA || !isBeforePixels(decoder))
        fail(decoder);
}

/// Whether every coefficient of a progressive picture has been refined to its end, and every component of
/// another one has been read: where the file ends without a marker nobody else looks.
bool hasAllScans(const jpeg_decompress_struct &decoder)
{
    for (int i = 0; i < decoder.num_components; ++i) {
        if (!decoder.comp_info[i].quant_table)
            return false;
        for (int k = 0; decoder.progressive_mode && k < DCTSIZE2; ++k) {
            if (decoder.coef_bits[i][k] != 0)
                return false;
        }
    }
    return true;
}

void limitScans(j_common_ptr decoder)
{
    if (reinterpret_cast<j_decompress_ptr>(decoder)->input_scan_number > kMaxProgressiveScans)
        fail(decoder);
}

std::uint8_t inkToLight(unsigned ink, unsigned black) { return static_cast<std::uint8_t>(ink * black / 255); }

/// Turns cyan, magenta, yellow, black into blue, green and red. Programs that leave an Adobe marker store
/// the inks inverted, as what is left of the light.
void convertCmykRow(std::uint8_t *row, std::int32_t width, bool inverted)
{
    for (std::int32_t x = 0; x < width; ++x, row += Picture::kPixelBytes) {
        unsigned light[kCmykComponents];
        for (int i = 0; i < kCmykComponents; ++i)
            light[i] = inverted ? row[i] : 255u - row[i];
        row[0] = inkToLight(light[2], light[3]);
        row[1] = inkToLight(light[1], light[3]);
        row[2] = inkToLight(light[0], light[3]);
    }
}

void readRows(jpeg_decompress_struct &decoder, Picture &picture)
{
    while (decoder.output_scanline < decoder.output_height) {
        std::uint8_t *row = picture.row(static_cast<std::int32_t>(decoder.output_scanline));
        jpeg_read_scanlines(&decoder, &row, 1);
        if (decoder.out_color_space == JCS_CMYK)
            convertCmykRow(row, picture.width, decoder.saw_Adobe_marker != 0);
    }
}

/// Errors of the library jump back into this function, so nothing in it or below may need destruction.
bool readJpeg(jpeg_decompress_struct &decoder, ErrorHandler &errors, std::FILE *file, Picture &picture)
{
    if (setjmp(errors.escape)) // NOLINT(cert-err52-cpp): the library knows no other way
        return false;
    jpeg_progress_mgr progress{};
    progress.progress_monitor = limitScans;
    jpeg_create_decompress(&decoder);
    decoder.progress = &progress;
    jpeg_stdio_src(&decoder, file);
    jpeg_read_header(&decoder, TRUE);
    if (!picture.allocate(decoder.image_width, decoder.image_height))
        return false;
    decoder.out_color_space = decoder.num_components == kCmykComponents ? JCS_CMYK : JCS_EXT_BGRA;
    decoder.dct_method = JDCT_ISLOW;
    decoder.do_fancy_upsampling = TRUE;
    jpeg_start_decompress(&decoder);
    const bool complete = hasAllScans(decoder);
    readRows(decoder, picture);
    jpeg_finish_decompress(&decoder);
    return !errors.endMarkerMissing || complete;
}

} // namespace

bool decodeJpeg(std::FILE *file, Picture &picture)
{
    ErrorHandler errors{};
    jpeg_decompress_struct decoder{};
    decoder.err = jpeg_std_error(&errors.base);
    errors.base.error_exit = fail;
    errors.base.emit_message = failOnDamage;
    const bool read = readJpeg(decoder, errors, file, picture);
    decoder.progress = nullptr;
    jpeg_destroy_decompress(&decoder);
    return read;
}

} // namespace platform::common
