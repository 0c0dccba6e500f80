// Visibility of the host's declarations.
//
// The plug-in is compiled with hidden visibility, so that it exports nothing
// but its factory. The classes and functions declared in host/ are defined by
// the host process, not by the plug-in: they must keep default visibility so
// that the plug-in's references to them stay dynamic and are resolved from the
// process that loads it.
#ifndef KTL_HOST_HOST_API_H
#define KTL_HOST_HOST_API_H

#define KTL_HOST_API __attribute__((visibility("default")))

#endif
