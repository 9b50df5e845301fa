#include "demo/sample/ProgressBar.h"

#include <utility>

#include <unistd.h>

namespace quellbrook::sample {

namespace {

constexpr int width = 30;

}  // namespace

ProgressBar::ProgressBar(std::string words, std::FILE* stream, bool isTerminal)
    : m_words(std::move(words)), m_stream(stream), m_isTerminal(isTerminal) {}

ProgressBar::ProgressBar(std::string words) : ProgressBar(std::move(words), stderr, isatty(fileno(stderr)) == 1) {}

ProgressBar::~ProgressBar() {
    if (m_shown < 0) return;
    std::fputc('\n', m_stream);
    std::fflush(m_stream);
}

void ProgressBar::Show(int percent) {
    if (percent == m_shown) return;
    const bool isFirst = m_shown < 0;
    m_shown = percent;
    if (m_isTerminal) {
        const int full = width * percent / 100;
        const std::string bar = std::string(full, '#') + std::string(width - full, ' ');
        std::fprintf(m_stream, "\r%s [%s] %3d %%", m_words.c_str(), bar.c_str(), percent);
    } else if (isFirst) {
        std::fputs(m_words.c_str(), m_stream);
    }
    std::fflush(m_stream);
}

}  // namespace quellbrook::sample
