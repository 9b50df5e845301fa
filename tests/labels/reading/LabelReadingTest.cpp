#include "data/BarcodeText.h"
#include "data/StorageLocationStatic.h"
#include "data/StoredItem.h"
#include "demo/sample/LabelTemplates.h"
#include "host/BarcodeImage.h"
#include "labels/BarcodeSymbol.h"
#include "tests/labels/reading/Pages.h"
#include "tests/labels/reading/Readers.h"
#include "tests/support/DatabaseTest.h"
#include "tests/support/HostileTexts.h"
#include "tests/support/LabelServices.h"
#include "tests/support/ui/QtTestMain.h"
#include "ui/platform/Pictures.h"
#include "ui/printing/LabelOutput.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <random>

#include <gtest/gtest.h>

namespace quellbrook::testing {
namespace {

constexpr int labelCount = 200;
constexpr int32_t lastKey = 2147483647;

// A printed label and the expected text of its barcode.
struct PrintedLabel {
    FilledLabel label;
    std::string barcode;
};

// Labels of random items and locations, printed by the items and locations themselves on the sample's templates.
class LabelReading : public DatabaseTest {
protected:
    void SetUp() override {
        if (Printed().size() == labelCount) return;
        Printed().clear();
        for (const sample::CompanionFile& file : sample::LabelTemplates())
            m_services.files->files[Backslashed(file.path)] = file.bytes;
        m_database.AddCode(31, 1, "Firearms & ammunition");
        m_database.AddCode(31, 2, "\xD0\x94\xD0\xBE\xD0\xBA\xD1\x83\xD0\xBC\xD0\xB5\xD0\xBD\xD1\x82\xD1\x8B");
        m_database.AddCode(46, 1, "Sedan");
        m_database.Execute("DELETE FROM StorageLocation WHERE IdNo = ?",  // leaves key 1 to a location of the test
                           {m_database.AddLocation("Gone", StorageLocationTypes::Internal)});
        m_room = m_database.AddLocation("Evidence Room \"A\"", StorageLocationTypes::Internal);
        for (int k = 0; k < labelCount; ++k) Print(k);
        ASSERT_EQ(Printed().size(), static_cast<size_t>(labelCount));
    }

    // Printed once for all tests.
    static std::vector<PrintedLabel>& Printed() {
        static std::vector<PrintedLabel> printed;
        return printed;
    }

    static std::string Backslashed(std::string path) {
        for (char& c : path)
            if (c == '/') c = '\\';
        return path;
    }

    // The first and the last key of each kind, then random ones.
    int32_t KeyOf(int k) {
        if (k < 3) return 1;
        if (k < 6) return lastKey;
        return std::uniform_int_distribution<int32_t>(2, lastKey - 1)(m_random);
    }

    std::string AnyText() {
        const auto& hostile = HostileTexts();
        std::string text;
        const int parts = std::uniform_int_distribution<int>(0, 4)(m_random);
        for (int part = 0; part < parts; ++part) {
            const size_t index = std::uniform_int_distribution<size_t>(0, hostile.size() + 3)(m_random);
            if (index < hostile.size())
                text += hostile[index].text + " ";
            else
                text += "A steel wheel of a bicycle, bent, found behind the shed. ";
        }
        return text;
    }

    void Print(int k) {
        const int32_t key = KeyOf(k);
        if (k % 3 == 2)
            PrintLocation(key);
        else
            PrintItem(key, k % 3 == 0 ? StoredItemTypes::Property : StoredItemTypes::vehicle);
    }

    void PrintItem(int32_t key, StoredItemTypes kind) {
        StoredItem item;
        item.LoadFromRow(Row::Of({{"ItemType", static_cast<int32_t>(kind)},
                                  {"ID", key},
                                  {"CategoryNo", std::uniform_int_distribution<int32_t>(1, 3)(m_random)},
                                  {"CurrTrackSeq", Null()},
                                  {"StorageLocNo", Null()},
                                  {"DisplayID", AnyText()},
                                  {"Description", AnyText()},
                                  {"Quantity", 1},
                                  {"Value", Null()},
                                  {"Make", Null()},
                                  {"Model", Null()},
                                  {"Serial", Null()}}));
        item.PrintBarcodeLabel();
        Keep(kind == StoredItemTypes::Property ? "P" : "V", key);
    }

    void PrintLocation(int32_t key) {
        const std::string moment = "2026-01-02T09:30:00.000";
        const std::string path = key % 2 == 0 ? "/0/" : "/0/" + std::to_string(m_room) + "/";
        m_database.Execute(
            "INSERT INTO StorageLocation (IdNo, Name, Path, Type, ActiveFlag, DateEntered, LastUpdated) "
            "VALUES (?, ?, ?, ?, 1, ?, ?)",
            {key, "Box " + std::to_string(key) + " " + AnyText(), path,
             static_cast<int32_t>(StorageLocationTypes::Internal), moment, moment});
        HostLocationData::Discard();
        GetStorageLocationStatic().FindByID(key)->PrintBarcodeLabel();
        Keep("L", key);
    }

    void Keep(const char* letter, int32_t key) {
        ASSERT_EQ(m_services.printer->labels.size(), Printed().size() + 1);
        Printed().push_back({m_services.printer->labels.back(), MakeBarcodeText(letter, key)});
        ASSERT_EQ(Printed().back().barcode.size(), 13u);
    }

    // The labels as a PDF that was painted for one resolution, rasterized at another. Created once for all tests.
    static const std::vector<QImage>& Pages(int printerDpi, int rasterDpi) {
        static std::map<std::pair<int, int>, std::vector<QImage>> made;
        std::vector<QImage>& pages = made[{printerDpi, rasterDpi}];
        if (!pages.empty()) return pages;
        std::vector<FilledLabel> labels;
        for (const PrintedLabel& printed : Printed()) labels.push_back(printed.label);
        pages = RasterizePages(MakeLabelPdf(labels, printerDpi), rasterDpi);
        for (QImage& page : pages) page = page.convertToFormat(QImage::Format_Grayscale8);
        return pages;
    }

    std::mt19937 m_random{20261121};
    LabelServices m_services;
    int32_t m_room = 0;
};

// The expected text of both readers.
void ExpectRead(const QImage& picture, const std::string& barcode, int number) {
    EXPECT_EQ(ReadWithZbar(picture), barcode) << "the first reader, label " << number;
    EXPECT_EQ(ReadWithZxing(picture), barcode) << "the second reader, label " << number;
}

// Pages are grayscale, one byte per pixel.
bool IsInk(const QImage& page, int x, int y) { return page.constScanLine(y)[x] < 200; }

QRect DotsOf(const LabelBox& box, int dotsPerInch) {
    const double scale = dotsPerInch / MillimetersPerInch;
    return QRect(
        QPoint(static_cast<int>(std::lround(box.left * scale)), static_cast<int>(std::lround(box.top * scale))),
        QPoint(static_cast<int>(std::lround((box.left + box.width) * scale)) - 1,
               static_cast<int>(std::lround((box.top + box.height) * scale)) - 1));
}

struct Resolution {
    int printer;
    int raster;
};

class PrintedLabels : public LabelReading, public ::testing::WithParamInterface<Resolution> {};

TEST_P(PrintedLabels, AreReadByBothReaders) {
    const std::vector<QImage>& pages = Pages(GetParam().printer, GetParam().raster);
    ASSERT_EQ(pages.size(), static_cast<size_t>(labelCount));
    for (int k = 0; k < labelCount; ++k) ExpectRead(pages[k], Printed()[k].barcode, k);
}

INSTANTIATE_TEST_SUITE_P(Resolutions, PrintedLabels,
                         ::testing::Values(Resolution{203, 203}, Resolution{300, 300}, Resolution{203, 300}),
                         [](const auto& instance) {
                             return "PaintedFor" + std::to_string(instance.param.printer) + "RasterizedAt" +
                                    std::to_string(instance.param.raster);
                         });

TEST_F(LabelReading, TheQuietZonesAreEmpty) {
    constexpr int dpi = 203;
    const std::vector<QImage>& pages = Pages(dpi, dpi);
    ASSERT_EQ(pages.size(), static_cast<size_t>(labelCount));
    for (int k = 0; k < labelCount; ++k) {
        const LabelBox& box = Printed()[k].label.barcodes.at(0).area.box;
        const QRect dots = DotsOf(box, dpi);
        const BarcodeSymbol symbol = EncodeCode128(Printed()[k].barcode);
        const int module = dots.width() / symbol.WidthWithQuietZones();
        const int quiet = module * BarcodeSymbol::QuietZone;
        const int row = dots.top() + dots.height() / 3;
        int first = dots.left(), last = dots.right();
        while (first < last && !IsInk(pages[k], first, row)) ++first;
        while (first < last && !IsInk(pages[k], last, row)) --last;
        ASSERT_NEAR(last - first + 1, module * static_cast<int>(symbol.modules.size()), 2) << "label " << k;
        EXPECT_GE(first - dots.left(), quiet) << "label " << k;
        EXPECT_GE(dots.right() - last, quiet) << "label " << k;
        for (int y = dots.top(); y <= dots.bottom(); ++y)
            for (int x = 1; x <= quiet; ++x) {
                ASSERT_FALSE(IsInk(pages[k], first - 1 - x, y)) << "label " << k << ", left of the symbol";
                ASSERT_FALSE(IsInk(pages[k], last + 1 + x, y)) << "label " << k << ", right of the symbol";
            }
    }
}

TEST_F(LabelReading, NothingIsDrawnOverAnythingElse) {
    constexpr int dpi = 203;
    for (const PrintedLabel& printed : Printed()) {
        std::vector<QRectF> boxes;
        for (const LabelText& text : printed.label.texts)
            boxes.emplace_back(text.area.box.left, text.area.box.top, text.area.box.width, text.area.box.height);
        const LabelBox& symbol = printed.label.barcodes.at(0).area.box;
        boxes.emplace_back(symbol.left, symbol.top, symbol.width, symbol.height);
        for (size_t a = 0; a < boxes.size(); ++a)
            for (size_t b = a + 1; b < boxes.size(); ++b) ASSERT_FALSE(boxes[a].intersects(boxes[b]));
    }
    const std::vector<QImage>& pages = Pages(dpi, dpi);
    FilledLabel empty = Printed()[0].label;
    empty.texts.clear();
    empty.barcodes.clear();
    const QImage drawing =
        RasterizePages(MakeLabelPdf({empty}, dpi), dpi).at(0).convertToFormat(QImage::Format_Grayscale8);
    ASSERT_EQ(pages.size(), static_cast<size_t>(labelCount));
    for (int k = 0; k < labelCount; ++k) {
        QImage page = pages[k];
        const auto wipe = [&page](const LabelBox& box) {
            // One more dot on each side, since an edge may cut through a dot.
            const QRect dots = DotsOf(box, dpi).adjusted(-1, -1, 1, 1).intersected(page.rect());
            for (int y = dots.top(); y <= dots.bottom(); ++y)
                std::fill_n(page.scanLine(y) + dots.left(), dots.width(), uchar(255));
        };
        for (const LabelText& text : Printed()[k].label.texts) wipe(text.area.box);
        wipe(Printed()[k].label.barcodes[0].area.box);
        for (int y = 0; y < page.height(); ++y)
            for (int x = 0; x < page.width(); ++x)
                ASSERT_EQ(IsInk(page, x, y), IsInk(drawing, x, y)) << "label " << k << " at " << x << ", " << y;
    }
}

class ScreenSymbols : public LabelReading, public ::testing::WithParamInterface<double> {};

TEST_P(ScreenSymbols, AreReadByBothReaders) {
    for (int k = 0; k < labelCount; ++k) {
        BarcodeImage image;
        image.SetSymbology(1);
        image.SetHeight(900);
        image.SetTwipsPerPixel(15 / GetParam());
        image.SetText(Printed()[k].barcode);
        ExpectRead(ToImage(image.GetPicture()), Printed()[k].barcode, k);
    }
}

INSTANTIATE_TEST_SUITE_P(ScaleFactors, ScreenSymbols, ::testing::Values(1.0, 1.5, 2.0), [](const auto& instance) {
    return "Times" + std::to_string(static_cast<int>(instance.param * 100)) + "Percent";
});

TEST_F(LabelReading, DetectsAMissingBar) {
    QImage page = MakeLabelImage(Printed()[0].label, 203);
    const QRect symbol = DotsOf(Printed()[0].label.barcodes.at(0).area.box, 203);
    for (int y = symbol.top(); y < symbol.bottom(); ++y)
        for (int x = symbol.center().x() - 12; x < symbol.center().x() + 12; ++x) page.setPixel(x, y, 0xFFFFFFFF);
    EXPECT_NE(ReadWithZbar(page), Printed()[0].barcode);
    EXPECT_NE(ReadWithZxing(page), Printed()[0].barcode);
}

}  // namespace
}  // namespace quellbrook::testing
