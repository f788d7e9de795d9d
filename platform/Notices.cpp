#include "platform/Notices.h"

#include <cstdio>
#include <utility>

namespace vistor {
namespace {

std::vector<Notice> kept;
std::function<void(const Notice&)> listening;

} // namespace

void notify(const QString& text) {
    if (!kept.empty() && kept.back().text == text) kept.pop_back();
    if (kept.size() == kNoticesKept) kept.erase(kept.begin());
    kept.push_back({QDateTime::currentDateTime(), text});
    const Notice notice = kept.back(); // the listener may tell something itself
    if (listening)
        listening(notice);
    else
        std::fprintf(stderr, "%s\n", qPrintable(text));
}

const std::vector<Notice>& notices() {
    return kept;
}

void clearNotices() {
    kept.clear();
}

void setNoticeListener(std::function<void(const Notice&)> listener) {
    listening = std::move(listener);
}

} // namespace vistor
