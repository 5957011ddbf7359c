#include "support/golden.h"
#include "support/wine.h"

#include <wincodec.h>
#include <wrl/client.h>

#include <gmock/gmock.h>

#include <cstdlib>
#include <string>

namespace test_support {
namespace {

using testing::HasSubstr;

picture two_by_two() {
    picture result(2, 2, 0xFF102030);
    result.at(1, 0) = 0x80402010;
    result.at(0, 1) = 0x00000000;
    return result;
}

TEST(picture_file, keeps_every_byte_of_every_pixel) {
    const auto file = failure_file("picture_file", "round_trip");
    picture written(256, 3);
    for (unsigned x = 0; x < 256; ++x) {
        written.at(x, 0) =
            x << 24 | 0x00804020;  // brighter than its alpha would let a straight conversion keep
        written.at(x, 1) = 0xFF000000 | x << 16 | (255 - x);
        written.at(x, 2) = x * 0x01010101;
    }
    save_png(written, file);
    EXPECT_TRUE(written == load_png(file));
    std::filesystem::remove(file);
}

TEST(picture_file, that_is_not_there_is_named_in_the_exception) {
    try {
        (void)load_png("Z:/nowhere/absent.png");
        FAIL() << "nothing was thrown";
    } catch (const std::runtime_error& e) {
        EXPECT_THAT(e.what(), HasSubstr("absent.png"));
    }
}

TEST(picture_of_a_bitmap, has_the_bitmaps_pixels) {
    ASSERT_GE(CoInitialize(nullptr), 0);
    {
        Microsoft::WRL::ComPtr<IWICImagingFactory> factory;
        ASSERT_GE(
            CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&factory)),
            0);
        auto pixels = two_by_two().pixels;
        Microsoft::WRL::ComPtr<IWICBitmap> bitmap;
        ASSERT_GE(factory->CreateBitmapFromMemory(2, 2, GUID_WICPixelFormat32bppPBGRA, 8, 16,
                                                  reinterpret_cast<BYTE*>(pixels.data()), &bitmap),
                  0);
        EXPECT_TRUE(two_by_two() == picture_of(bitmap.Get()));

        Microsoft::WRL::ComPtr<IWICBitmap> grey;
        ASSERT_GE(factory->CreateBitmap(2, 2, GUID_WICPixelFormat8bppGray, WICBitmapCacheOnLoad, &grey), 0);
        EXPECT_THROW((void)picture_of(grey.Get()), std::runtime_error);
    }
    CoUninitialize();
}

TEST(comparison, counts_the_pixels_beyond_the_tolerance) {
    const auto expected = two_by_two();
    auto actual = expected;
    actual.at(0, 0) = 0xFF132030;  // 3 more red
    actual.at(1, 1) = 0xFE102030;  // 1 less alpha

    EXPECT_EQ(0u, compare(expected, expected).pixels);
    EXPECT_EQ(0u, compare(expected, expected).greatest_channel);
    EXPECT_EQ(2u, compare(expected, actual).pixels);
    EXPECT_EQ(3u, compare(expected, actual).greatest_channel);
    EXPECT_EQ(1u, compare(expected, actual, {.channel = 2}).pixels);
    EXPECT_EQ(0u, compare(expected, actual, {.channel = 3}).pixels);
    EXPECT_EQ(0xFFFF0000, compare(expected, actual).image.at(0, 0));
    EXPECT_EQ(0xFF100804, compare(expected, actual).image.at(1, 0));
    EXPECT_FALSE(compare(expected, picture(2, 1)).same_size);
}

// The environment variable is put back at the end.
class golden : public testing::Test {
protected:
    golden() {
        if (const char* const value = std::getenv(variable)) previous_ = value;
        set("");
    }
    ~golden() override {
        set(previous_.c_str());
        std::filesystem::remove_all(golden_file(name).parent_path());
        std::filesystem::remove_all(failure_file(name, "actual").parent_path());
    }

    void set(const char* value) { _putenv_s(variable, value); }

    static constexpr const char* variable = "MOSSHARBOUR_UPDATE_GOLDENS";
    static constexpr const char* name = "golden_test_scratch/picture";

private:
    std::string previous_;
};

TEST_F(golden, that_is_absent_fails_the_comparison_and_saves_the_picture) {
    const auto result = matches_golden(two_by_two(), name);
    EXPECT_FALSE(result);
    EXPECT_THAT(result.message(), HasSubstr("no such golden"));
    EXPECT_TRUE(two_by_two() == load_png(failure_file(name, "actual")));
}

TEST_F(golden, is_written_on_request_and_matches_from_then_on) {
    set("1");
    EXPECT_TRUE(matches_golden(two_by_two(), name));
    set("");
    EXPECT_TRUE(matches_golden(two_by_two(), name));
    EXPECT_FALSE(std::filesystem::exists(failure_file(name, "actual")));
}

TEST_F(golden, that_differs_fails_with_the_figures_and_both_pictures) {
    save_png(two_by_two(), golden_file(name));
    auto actual = two_by_two();
    actual.at(1, 1) = 0xFF1020FF;
    const auto result = matches_golden(actual, name, {.channel = 1});
    EXPECT_FALSE(result);
    EXPECT_THAT(result.message(), HasSubstr("differs in 1 pixels, by up to 207"));
    EXPECT_TRUE(actual == load_png(failure_file(name, "actual")));
    EXPECT_EQ(0xFFFF0000, load_png(failure_file(name, "difference")).at(1, 1));
    EXPECT_TRUE(matches_golden(actual, name, {.channel = 207}));
    EXPECT_TRUE(matches_golden(actual, name, {.channel = 1, .pixels = 1}));
}

TEST_F(golden, of_another_size_fails_with_both_sizes) {
    save_png(picture(3, 2), golden_file(name));
    const auto result = matches_golden(two_by_two(), name, {.channel = 255, .pixels = 100});
    EXPECT_FALSE(result);
    EXPECT_THAT(result.message(), HasSubstr("the golden is 3 by 2, the actual picture 2 by 2"));
}

TEST_F(golden, stands_in_a_folder_of_the_system_that_painted_it) {
    const std::string system = running_under_wine() ? "wine" : "windows";
    EXPECT_THAT(golden_file("a/b").generic_string(),
                testing::EndsWith("/tests/goldens/" + system + "/a/b.png"));
}

}  // namespace
}  // namespace test_support
