// CCommandParam: one option/value pair. The constructors and the destructor
// are the host's symbols, so that a plug-in copying pairs links against them.
#include "host/command.h"

CCommandParam::CCommandParam() {}

CCommandParam::CCommandParam(const CCommandParam& other)
    : m_strOption(other.m_strOption), m_strValue(other.m_strValue) {}

CCommandParam::~CCommandParam() {}
