#ifndef ORVIKCORE_ACONTENTFACTORY_H
#define ORVIKCORE_ACONTENTFACTORY_H

#include "OrvikCore/Export.h"

namespace OrvikCore {

class AContent;
class Document;

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

/// Makes an empty content for a document.
///
/// The session manager owns the registered factories and deletes them through this class.
/// Deliberate: there is no virtual destructor. A factory therefore carries no data of its own and
/// is best declared `final`, with the warning -Wnon-virtual-dtor switched off around it. Held by
/// AContentFactory.HasOneOperationAndNoVirtualDestructor.
class ORVIKCORE_API AContentFactory
{
public:
    /// Makes a content.
    ///
    /// @param document  the document that the content is made for; not owned.
    /// @return          the content, transferred out; null when none can be made.
    virtual AContent* CreateContent(Document& document) = 0;
};

#pragma GCC diagnostic pop

} // namespace OrvikCore

#endif
