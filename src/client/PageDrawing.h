#pragma once

#include "corvexkit/Result.h"

class CXClock;
class OrvaneKit;
struct PicturePage;
struct PictureRequest;

/// Shows the page in the real window of the account, on the offscreen platform, and draws it into the file
/// that was asked for. Main thread.
Result<void> drawPage(const PicturePage &page, const PictureRequest &request, OrvaneKit &kit, CXClock &clock);
