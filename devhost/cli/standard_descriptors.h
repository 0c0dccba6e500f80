// Descriptors 0, 1 and 2 as every program expects them.
//
// A program started with one of them closed would hand that number to the
// first file it opens: ktl-cli's messages would then go into audit.log, or
// an answer be read from the lock file. The usual remedy of set-user-ID
// programs is applied at start, before anything else is opened.
#ifndef KTL_DEVHOST_STANDARD_DESCRIPTORS_H
#define KTL_DEVHOST_STANDARD_DESCRIPTORS_H

namespace devhost {

// Opens /dev/null on each of standard input, output and error that is
// closed. False when that cannot be done; the caller must then stop, saying
// nothing (it has nowhere safe to say it).
bool FillClosedStandardDescriptors();

}  // namespace devhost

#endif
