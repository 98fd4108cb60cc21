// SPDX-License-Identifier: GPL-3.0-or-later
// JPEG files of kinds that Qt doesn't write.
#include "artwork/Pictures.h"

#include <QFile>

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <vector>

#include <jpeglib.h>

namespace tonearm::test {

namespace {

using Samples = std::vector<JSAMPLE>;

// The colours of the quarters as the library takes them: CMYK inverted, as the files in the world are.
Samples samplesOf(JpegRecipe::Colours colours, bool isRight, bool isLower)
{
    const JSAMPLE red = isLower == isRight ? 255 : 0;
    const JSAMPLE green = isRight ? 255 : 0;
    const JSAMPLE blue = isLower ? 255 : 0;
    switch (colours) {
    case JpegRecipe::Colours::grey:
        return {static_cast<JSAMPLE>((red + green + blue) / 3)};
    case JpegRecipe::Colours::colour:
        return {red, green, blue};
    case JpegRecipe::Colours::cmyk:
        return {red, green, blue, 255};
    }
    Q_UNREACHABLE();
}

Samples samplesOfRow(const JpegRecipe &recipe, bool isLower)
{
    Samples row;
    for (int x = 0; x < recipe.size.width(); ++x) {
        const Samples pixel = samplesOf(recipe.colours, x >= recipe.size.width() / 2, isLower);
        row.insert(row.end(), pixel.begin(), pixel.end());
    }
    return row;
}

J_COLOR_SPACE colourSpace(JpegRecipe::Colours colours)
{
    switch (colours) {
    case JpegRecipe::Colours::grey:
        return JCS_GRAYSCALE;
    case JpegRecipe::Colours::colour:
        return JCS_RGB;
    case JpegRecipe::Colours::cmyk:
        return JCS_CMYK;
    }
    Q_UNREACHABLE();
}

// One scan for each component, all of it at once.
std::vector<jpeg_scan_info> scansOf(int components)
{
    std::vector<jpeg_scan_info> scans;
    for (int component = 0; component < components; ++component)
        scans.push_back({.comps_in_scan = 1,
                         .component_index = {component},
                         .Ss = 0,
                         .Se = DCTSIZE2 - 1,
                         .Ah = 0,
                         .Al = 0});
    return scans;
}

void configure(jpeg_compress_struct &info, const JpegRecipe &recipe, const std::vector<jpeg_scan_info> &scans)
{
    info.image_width = static_cast<JDIMENSION>(recipe.size.width());
    info.image_height = static_cast<JDIMENSION>(recipe.size.height());
    info.input_components = static_cast<int>(samplesOf(recipe.colours, false, false).size());
    info.in_color_space = colourSpace(recipe.colours);
    jpeg_set_defaults(&info);
    jpeg_set_quality(&info, recipe.quality, TRUE);
    if (!recipe.isSubsampled)
        info.comp_info[0].h_samp_factor = info.comp_info[0].v_samp_factor = 1;
    if (recipe.isProgressive)
        jpeg_simple_progression(&info);
    if (recipe.isInSeveralScans) {
        info.scan_info = scans.data();
        info.num_scans = static_cast<int>(scans.size());
    }
}

void compressRows(jpeg_compress_struct &info, const JpegRecipe &recipe)
{
    std::array rows{samplesOfRow(recipe, false), samplesOfRow(recipe, true)};
    while (info.next_scanline < info.image_height) {
        JSAMPROW row = rows.at(info.next_scanline >= info.image_height / 2 ? 1 : 0).data();
        jpeg_write_scanlines(&info, &row, 1);
    }
}

} // namespace

// An error ends the test program: the library's own way, and no test should meet one.
void makeJpeg(const QString &path, const JpegRecipe &recipe)
{
    std::FILE *file = std::fopen(QFile::encodeName(path).constData(), "wbe");
    ASSERT_NE(file, nullptr);
    jpeg_error_mgr errors = {};
    jpeg_compress_struct info = {};
    info.err = jpeg_std_error(&errors);
    jpeg_create_compress(&info);
    jpeg_stdio_dest(&info, file);
    const std::vector<jpeg_scan_info> scans =
        scansOf(static_cast<int>(samplesOf(recipe.colours, false, false).size()));
    configure(info, recipe, scans);
    jpeg_start_compress(&info, TRUE);
    compressRows(info, recipe);
    jpeg_finish_compress(&info);
    jpeg_destroy_compress(&info);
    ASSERT_EQ(std::fclose(file), 0);
}

} // namespace tonearm::test
