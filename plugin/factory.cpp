// The plug-in's one exported symbol.
#include "plugin/logger_config_cmd.h"

// The host owns the returned object and deletes it through CCommand's virtual
// destructor. If construction throws, the new-expression releases the storage
// and the exception reaches the host.
extern "C" __attribute__((visibility("default"))) CCommand* GetCommandFactorylogger() { return new CLoggerConfigCmd(); }
