#include "demo/sample/ProgressBar.h"

#include <memory>

#include <gtest/gtest.h>

namespace quellbrook::sample {

namespace {

// The output of a progress bar.
class Kept {
public:
    ~Kept() {
        std::fclose(m_stream);
        std::free(m_text);
    }
    std::FILE* Stream() const { return m_stream; }
    std::string Text() const {
        std::fflush(m_stream);
        return std::string(m_text, m_size);
    }

private:
    char* m_text = nullptr;
    size_t m_size = 0;
    std::FILE* m_stream = open_memstream(&m_text, &m_size);
};

}  // namespace

TEST(ProgressBar, GrowsOnOneTerminalLine) {
    const Kept kept;
    {
        ProgressBar bar("Making", kept.Stream(), true);
        bar.Show(0);
        EXPECT_EQ(kept.Text(), "\rMaking [                              ]   0 %");
        bar.Show(50);
        bar.Show(100);
    }
    EXPECT_EQ(kept.Text(),
              "\rMaking [                              ]   0 %"
              "\rMaking [###############               ]  50 %"
              "\rMaking [##############################] 100 %\n");
}

TEST(ProgressBar, DoesNotRewriteTheSamePercentage) {
    const Kept kept;
    ProgressBar bar("Making", kept.Stream(), true);
    bar.Show(7);
    const std::string before = kept.Text();
    bar.Show(7);
    EXPECT_EQ(kept.Text(), before);
}

TEST(ProgressBar, AStreamThatIsNotATerminalGetsTheTextOnce) {
    const Kept kept;
    {
        ProgressBar bar("Making", kept.Stream(), false);
        bar.Show(0);
        bar.Show(50);
        bar.Show(100);
    }
    EXPECT_EQ(kept.Text(), "Making\n");
}

TEST(ProgressBar, WritesNothingBeforeTheFirstShow) {
    const Kept kept;
    { const ProgressBar bar("Making", kept.Stream(), true); }
    EXPECT_EQ(kept.Text(), "");
}

}  // namespace quellbrook::sample
