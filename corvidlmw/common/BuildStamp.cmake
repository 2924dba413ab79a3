# Writes the source OUTPUT that says of which VERSION the library is, and when it was built: now, or at
# the time that SOURCE_DATE_EPOCH names, so that two builds of one source can be equal.
string(TIMESTAMP built "%A %B %d %H:%M:%S UTC %Y" UTC)
file(WRITE ${OUTPUT} "#include <corvidlmw/common/BuildStamp.h>

namespace corvidlmw {

const BuildStamp build_stamp = {\"libcorvidlmw\", \"${VERSION}\", \"\", \"${built}\"};

} // namespace corvidlmw
")
