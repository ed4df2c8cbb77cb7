#ifndef ENGINESCHEME_SCHEMERUNTIME_H
#define ENGINESCHEME_SCHEMERUNTIME_H

namespace OrvikScheme {

/// The Scheme half of the engine: runs a text, reports errors, binds commands, offers help.
///
/// It defines the module (pellux engine); scripts run in (guile-user), where commands are bound
/// too. The primitives whose names begin with % are defined by SchemePrimitives.cpp before it is
/// loaded.
extern const char kSchemeRuntime[];

} // namespace OrvikScheme

#endif
