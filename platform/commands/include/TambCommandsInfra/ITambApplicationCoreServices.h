#ifndef TAMBCOMMANDSINFRA_ITAMBAPPLICATIONCORESERVICES_H
#define TAMBCOMMANDSINFRA_ITAMBAPPLICATIONCORESERVICES_H

#include "TambCommandsInfra/Color24.h"
#include "TambCommandsInfra/Export.h"
#include "TambCommandsInfra/ITambServiceSet.h"
#include "TambCommandsInfra/Int8.h"
#include "TambCommandsInfra/Nullable.h"

#include <string>
#include <vector>

/// What scripts may ask of the application: messages, completion texts, a pause, default colours,
/// folders.
///
/// Prints and tool tips are posted: they return before they are shown, in the order in which they
/// were made, also relative to every other call; what an Impl of theirs throws is written to the
/// debug output unless it ran at once. Every other operation waits for the main thread. See
/// ITambServiceSet for threads and errors.
class TAMBCOMMANDSINFRA_API ITambApplicationCoreServices : public ITambServiceSet
{
public:
    using Color24 = TambCommandsInfra::Color24;
    using Int8 = TambCommandsInfra::Int8;
    template <typename T> using Nullable = TambCommandsInfra::Nullable<T>;

    ~ITambApplicationCoreServices() override;

    /// Prints @p text to the console: as ordinary output, as a warning, as an error. Posted.
    void PrintMessage(const std::wstring& text);
    void PrintWarningMessage(const std::wstring& text);
    void PrintErrorMessage(const std::wstring& text);

    /// Shows @p text as the tool tip of the view; an empty text shows none. Posted.
    void SetTooltip(const std::wstring& text);

    /// Describes a script command for completion in the console.
    ///
    /// @param names      The names of the command, the usual one first.
    /// @param arguments  The names of its arguments, in order.
    /// @param help       What it does.
    void AddExtensionInfo(const std::vector<std::wstring>& names,
                          const std::vector<std::wstring>& arguments, const std::wstring& help);

    /// Describes an object of the script language for completion in the console.
    ///
    /// @param names  The names of the object, the usual one first.
    /// @param help   What it is.
    void AddObjectInfo(const std::vector<std::wstring>& names, const std::wstring& help);

    /// Pauses the application, or lets it go on.
    void Pause(bool pause);

    /// Give the colour that faces, edges, vertices and tessellated edges have by default.
    Nullable<Color24> GetDefaultFaceColor();
    Nullable<Color24> GetDefaultEdgeColor();
    Nullable<Color24> GetDefaultVertexColor();
    Nullable<Color24> GetDefaultTessEdgeColor();

    /// Set that colour and apply it to the view; with no value they restore red, green and blue of
    /// the first setting and leave alpha alone.
    void SetDefaultFaceColor(const Nullable<Color24>& color);
    void SetDefaultEdgeColor(const Nullable<Color24>& color);
    void SetDefaultVertexColor(const Nullable<Color24>& color);
    void SetDefaultTessEdgeColor(const Nullable<Color24>& color);

    /// Give the alpha component of the default colour of faces, edges, vertices: 0 is transparent,
    /// 255 opaque.
    Nullable<Int8> GetDefaultFaceAlpha();
    Nullable<Int8> GetDefaultEdgeAlpha();
    Nullable<Int8> GetDefaultVertexAlpha();

    /// Set that component and apply it to the view; with no value they restore that of the first
    /// setting.
    void SetDefaultFaceAlpha(const Nullable<Int8>& alpha);
    void SetDefaultEdgeAlpha(const Nullable<Int8>& alpha);
    void SetDefaultVertexAlpha(const Nullable<Int8>& alpha);

    /// Gives one of the two colours of the background.
    ///
    /// @param number  1 or 2.
    /// @throws std::invalid_argument "Invalid Background Number" for any other number.
    Nullable<Color24> GetBackgroundColor(int number);

    /// Sets one of the two colours of the background, opaque; with no value it changes nothing.
    ///
    /// @param number  1 or 2.
    /// @throws std::invalid_argument "Invalid Background Number" for any other number.
    void SetBackgroundColor(const Nullable<Color24>& color, int number);

    /// Give the folder that relative names of files to read or to write start from.
    Nullable<std::wstring> GetDefaultInputDirectory();
    Nullable<std::wstring> GetDefaultOutputDirectory();

    /// Set that folder; with no value they set ".".
    void SetDefaultInputDirectory(const Nullable<std::wstring>& directory);
    void SetDefaultOutputDirectory(const Nullable<std::wstring>& directory);

protected:
    ITambApplicationCoreServices();

private:
    // Virtual operations in slot order; append only.
    virtual void PrintMessageImpl(const std::wstring& text) = 0;
    virtual void PrintWarningMessageImpl(const std::wstring& text) = 0;
    virtual void PrintErrorMessageImpl(const std::wstring& text) = 0;
    virtual void SetTooltipImpl(const std::wstring& text) = 0;
    virtual void AddExtensionInfoImpl(const std::vector<std::wstring>& names,
                                      const std::vector<std::wstring>& arguments,
                                      const std::wstring& help) = 0;
    virtual void AddObjectInfoImpl(const std::vector<std::wstring>& names,
                                   const std::wstring& help) = 0;
    virtual void PauseImpl(bool pause) = 0;
    virtual Nullable<Color24> GetDefaultFaceColorImpl() = 0;
    virtual Nullable<Color24> GetDefaultEdgeColorImpl() = 0;
    virtual Nullable<Color24> GetDefaultVertexColorImpl() = 0;
    virtual Nullable<Color24> GetDefaultTessEdgeColorImpl() = 0;
    virtual void SetDefaultFaceColorImpl(const Nullable<Color24>& color) = 0;
    virtual void SetDefaultEdgeColorImpl(const Nullable<Color24>& color) = 0;
    virtual void SetDefaultVertexColorImpl(const Nullable<Color24>& color) = 0;
    virtual void SetDefaultTessEdgeColorImpl(const Nullable<Color24>& color) = 0;
    virtual Nullable<Int8> GetDefaultFaceAlphaImpl() = 0;
    virtual Nullable<Int8> GetDefaultEdgeAlphaImpl() = 0;
    virtual Nullable<Int8> GetDefaultVertexAlphaImpl() = 0;
    virtual void SetDefaultFaceAlphaImpl(const Nullable<Int8>& alpha) = 0;
    virtual void SetDefaultEdgeAlphaImpl(const Nullable<Int8>& alpha) = 0;
    virtual void SetDefaultVertexAlphaImpl(const Nullable<Int8>& alpha) = 0;
    virtual Nullable<Color24> GetBackgroundColorImpl(int number) = 0;
    virtual void SetBackgroundColorImpl(const Nullable<Color24>& color, int number) = 0;
    virtual Nullable<std::wstring> GetDefaultInputDirectoryImpl() = 0;
    virtual Nullable<std::wstring> GetDefaultOutputDirectoryImpl() = 0;
    virtual void SetDefaultInputDirectoryImpl(const Nullable<std::wstring>& directory) = 0;
    virtual void SetDefaultOutputDirectoryImpl(const Nullable<std::wstring>& directory) = 0;
};

#endif
