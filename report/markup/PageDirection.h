#pragma once

namespace hierfit::report {

/// The direction of the page that texts are appended to on this thread, for as long as it lives; from left to right
/// where there is none.
class PageDirection {
  public:
    explicit PageDirection(bool isRightToLeft);
    ~PageDirection();
    PageDirection(const PageDirection&) = delete;
    PageDirection& operator=(const PageDirection&) = delete;

    static bool IsRightToLeft();

  private:
    bool fBefore;
};

}  // namespace hierfit::report
