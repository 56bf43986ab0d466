#include "capture/FuzzedTitle.h"

#include <cstdio>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray complaint = complaintAboutFuzzedTitle({data, qsizetype(size)});
    if (complaint.isEmpty()) return 0;
    std::fprintf(stderr, "%s\n", complaint.constData());
    std::abort();
}
