// The host's INI reader, after the API of the same name.
#ifndef KTL_HOST_PROFILE_H
#define KTL_HOST_PROFILE_H

#include "host/host_api.h"

extern "C" {

// The integer value of pszKey in section pszSection of the INI file
// pszFileName, or nDefault when the file, the section or the key is missing.
KTL_HOST_API int GetPrivateProfileIntA(const char* pszSection, const char* pszKey, int nDefault,
                                       const char* pszFileName);
}

#endif
