// SPDX-License-Identifier: MIT
//
// Loads and unloads the library and records the order in which its static objects are constructed: each constructor is
// followed by a call of __cxa_atexit, which this program intercepts.
#include <Settings/SettingsContext.h>
#include <Storage/EmptyStorage.h>

#include <support/Patterns.h>
#include <support/Process.h>

#include <QFont>
#include <QRegExp>
#include <QStandardPaths>
#include <QStringList>

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <map>
#include <memory>
#include <sstream>

#include <dlfcn.h>
#include <link.h>

namespace {

using Storage::EmptyStorage;

constexpr std::size_t capacity = 4096;
void* registered[capacity];
std::size_t registeredCount = 0;

} // namespace

extern "C" __attribute__((visibility("default"))) int __cxa_atexit(void (*destructor)(void*), void* object, void* handle) noexcept
{
    if (registeredCount < capacity)
        registered[registeredCount++] = object;
    using Register = int (*)(void (*)(void*), void*, void*);
    static Register const next = reinterpret_cast<Register>(::dlsym(RTLD_NEXT, "__cxa_atexit"));
    return next(destructor, object, handle);
}

namespace {

class Loaded {
public:
    Loaded() : m_handle((registeredCount = 0, ::dlopen(LIBRARY_FILE, RTLD_NOW | RTLD_LOCAL))) {}
    ~Loaded() { unload(); }
    Loaded(Loaded const&) = delete;
    Loaded& operator=(Loaded const&) = delete;

    explicit operator bool() const { return m_handle; }
    void unload()
    {
        if (m_handle)
            ::dlclose(m_handle);
        m_handle = nullptr;
    }
    void* symbol(char const* name) const { return ::dlsym(m_handle, name); }

    // The names of the library's objects in the order of their construction.
    std::vector<std::string> objects() const
    {
        link_map* map = nullptr;
        ::dlinfo(m_handle, RTLD_DI_LINKMAP, &map);
        std::map<void*, std::string> names;
        for (std::string const& line : lines(run({"nm", "--defined-only", "--demangle", LIBRARY_FILE}).out)) {
            std::istringstream fields(line);
            unsigned long address = 0;
            std::string type;
            std::string name;
            if (fields >> std::hex >> address >> type >> std::ws && std::getline(fields, name) && type.find_first_of("bBdD") == 0)
                names[reinterpret_cast<void*>(map->l_addr + address)] = bare(name);
        }
        std::vector<std::string> result;
        for (std::size_t index = 0; index < registeredCount; ++index) {
            auto const found = names.find(registered[index]);
            if (found != names.end())
                result.push_back(found->second);
        }
        return result;
    }

private:
    // "(anonymous namespace)::name" and "name[abi:cxx11]" as name.
    static std::string bare(std::string name)
    {
        name.erase(std::min(name.find('['), name.size()));
        std::string const anonymous = "(anonymous namespace)::";
        return name.compare(0, anonymous.size(), anonymous) == 0 ? name.substr(anonymous.size()) : name;
    }

    void* m_handle;
};

bool endsWith(std::string const& text, std::string const& end)
{
    return text.size() >= end.size() && text.compare(text.size() - end.size(), end.size(), end) == 0;
}

TEST(Load, ObjectsAreConstructedInTheirOrder)
{
    Loaded const library;
    ASSERT_TRUE(library) << ::dlerror();
    std::vector<std::string> const objects = library.objects();
    auto const position = [&](std::string const& name) { return std::find(objects.begin(), objects.end(), name) - objects.begin(); };
    auto const count = static_cast<std::ptrdiff_t>(objects.size());

    ASSERT_GT(count, 100) << "the library's symbols were found";
    EXPECT_EQ(objects.front(), "Configuration::productDataFolder");
    EXPECT_EQ(objects.back(), "s_instance");
    EXPECT_EQ(position("listSeparator"), count - 2);

    // Keys and defaults, then folder names, then the names of resource files.
    std::ptrdiff_t const firstFolderName = position("Settings::lumoraLibrary");
    char const* const folderNames[] = {"lumoraLibrary",
                                       "projectDirectory",
                                       "audioRecordDirectory",
                                       "resourcesDirectory",
                                       "stabilizedFileDirectory",
                                       "fastTrackContentDirectory",
                                       "waveformCacheDirectory",
                                       "newsCenterContentDirectory",
                                       "bundleShadowCacheDirectory",
                                       "downloaderCacheDirectory",
                                       "packInAppCacheDirectory",
                                       "countDownFont",
                                       "countDownPadImage",
                                       "packageExtenstion",
                                       "waveformExtension"};
    std::ptrdiff_t next = firstFolderName;
    for (char const* name : folderNames)
        EXPECT_EQ(position(std::string("Settings::") + name), next++) << name;
    char const* const resourceFiles[] = {"presetFilePath",
                                         "userPresetFilePath",
                                         "transitionPreviewFileAPath",
                                         "transitionPreviewFileBPath",
                                         "titlePreviewFilePath",
                                         "calloutPreviewFilePath",
                                         "quizPreviewFilePath",
                                         "effectPreviewFilePath",
                                         "audioPreviewFilePath",
                                         "panZoomPreviewFilePath",
                                         "animationBackgroundPreviewFilePath",
                                         "animationIconPreviewFilePath",
                                         "colorFilterPreviewFilePath"};
    for (char const* name : resourceFiles)
        EXPECT_EQ(position(name), next++) << name;
    EXPECT_EQ(next, count - 2) << "the names of files and folders stand right before the list separator";
    int keys = 0;
    for (std::ptrdiff_t index = 1; index < firstFolderName; ++index) {
        std::string const& name = objects[static_cast<std::size_t>(index)];
        EXPECT_TRUE(endsWith(name, "Key") || endsWith(name, "Default") || name == "usedOutputDirectories") << name;
        keys += endsWith(name, "Key");
    }
    EXPECT_EQ(keys, 55);
}

TEST(Load, BindingIsEmptyAtFirst)
{
    Loaded const library;
    ASSERT_TRUE(library) << ::dlerror();
    auto const* const instance = static_cast<SettingsContext const*>(library.symbol("s_instance"));
    ASSERT_TRUE(instance);
    EXPECT_FALSE(instance->productInfo.lock());
    EXPECT_FALSE(instance->commonStorage.lock());
    EXPECT_FALSE(instance->productStorage.lock());
    EXPECT_EQ(instance->resourcesRoot.utf8string(), "");
}

struct Store final : EmptyStorage {
    explicit Store(bool& destroyed) : m_destroyed(destroyed) {}
    ~Store() override { m_destroyed = true; }

private:
    bool& m_destroyed;
};

int freedBlocks = 0;

// Counts the control blocks that are freed, which happens when the last weak reference goes.
template <typename T>
struct CountingAllocator {
    using value_type = T;
    CountingAllocator() = default;
    template <typename U>
    CountingAllocator(CountingAllocator<U> const&)
    {}
    T* allocate(std::size_t count) { return std::allocator<T>().allocate(count); }
    void deallocate(T* pointer, std::size_t count)
    {
        ++freedBlocks;
        std::allocator<T>().deallocate(pointer, count);
    }
    bool operator==(CountingAllocator const&) const { return true; }
    bool operator!=(CountingAllocator const&) const { return false; }
};

TEST(Unload, ReleasesTheWeakReferencesAndLeavesTheCollaboratorsAlone)
{
    Loaded library;
    ASSERT_TRUE(library) << ::dlerror();
    auto const init = reinterpret_cast<void (*)(SettingsContext const&)>(library.symbol("_ZN8Settings4initERK15SettingsContext"));
    ASSERT_TRUE(init);
    bool destroyed = false;
    std::shared_ptr<ISettingsStorage> store = std::allocate_shared<Store>(CountingAllocator<Store>(), destroyed);
    init({{}, store, store, Lumora::ioPath("/root")});
    library.unload();
    ASSERT_FALSE(::dlopen(LIBRARY_FILE, RTLD_NOW | RTLD_NOLOAD)) << "the library is still loaded";
    EXPECT_FALSE(destroyed);
    freedBlocks = 0;
    store.reset();
    EXPECT_TRUE(destroyed);
    EXPECT_EQ(freedBlocks, 1) << "a weak reference is left";
}

// --- What outlives the library ---

struct Product final : IProductInfo {
    std::string vendorName() const override { return "Vendor"; }
    std::string productName() const override { return "Product"; }
    std::string sharedDataFolderName() const override { return "Shared"; }
    int productKind() const override { return 1; }
    std::string projectFileExtensions() const override { return "ext1,ext2"; }
};

// The names of the functions without arguments that the header declares to return `type`.
std::vector<std::string> functionsReturning(std::string const& type)
{
    std::ifstream header(HEADER_FILE);
    std::vector<std::string> names;
    for (std::string line; std::getline(header, line);)
        for (std::string const& name : captured(line, '^' + type + " (\\w+)\\(\\);.*$"))
            names.push_back(name);
    return names;
}

template <typename Result, typename... Arguments>
Result call(Loaded const& library, std::string const& symbol, Arguments... arguments)
{
    void* const function = library.symbol(symbol.c_str());
    EXPECT_TRUE(function) << symbol;
    return function ? reinterpret_cast<Result (*)(Arguments...)>(function)(arguments...) : Result();
}

template <typename Result>
Result callByName(Loaded const& library, std::string const& name)
{
    std::string const ownName = std::to_string(name.size()) + name;
    std::string const inNamespace = "_ZN8Settings" + ownName + "Ev";
    return call<Result>(library, library.symbol(inNamespace.c_str()) ? inNamespace : "_Z" + ownName + 'v');
}

// Copies of the exported constants that are as large as a QString, which no other type is.
std::vector<QString> constants(Loaded const& library)
{
    std::vector<QString> copies;
    for (std::string const& line : lines(run({"nm", "--dynamic", "--defined-only", "--format=posix", LIBRARY_FILE}).out)) {
        std::istringstream fields(line);
        std::string name;
        char type = 0;
        unsigned long address = 0;
        unsigned long size = 0;
        if (fields >> name >> type >> std::hex >> address >> size && type == 'B' && size == sizeof(QString))
            copies.push_back(*static_cast<QString const*>(library.symbol(name.c_str())));
    }
    return copies;
}

std::vector<QString> results(Loaded const& library)
{
    std::vector<QString> copies;
    for (std::string const& name : functionsReturning("QString"))
        copies.push_back(callByName<QString>(library, name));
    for (std::string const& name : functionsReturning("QStringList"))
        for (QString const& element : callByName<QStringList>(library, name))
            copies.push_back(element);
    std::string const effect = "My:Effect?";
    copies.push_back(call<QString, std::string const&>(
        library, "_ZN8Settings15userEffectsPathERKNSt7__cxx1112basic_stringIcSt11char_traitsIcESaIcEEE", effect));
    copies.push_back(call<QString>(library, "_ZN8Settings16notificationFileENS_13NotificationsE", 0));
    copies.push_back(call<QString>(library, "_Z15makeDefaultPathN14QStandardPaths16StandardLocationE7QString",
                                   QStandardPaths::MoviesLocation, QString()));
    return copies;
}

bool isMapped(std::string const& name)
{
    std::ifstream maps("/proc/self/maps");
    std::string const text(std::istreambuf_iterator<char>(maps), {});
    EXPECT_FALSE(text.empty());
    return text.find(name) != std::string::npos;
}

TEST(Unload, LeavesTheTextsThatWereCopied)
{
    ::setenv("HOME", "/home/u", 1);
    Loaded library;
    ASSERT_TRUE(library) << ::dlerror();
    auto const product = std::make_shared<Product>();
    auto const store = std::make_shared<EmptyStorage>();
    call<void, SettingsContext const&>(library, "_ZN8Settings4initERK15SettingsContext",
                                       {product, store, store, Lumora::ioPath("/no/such/folder")});
    std::vector<QString> texts = constants(library);
    ASSERT_EQ(texts.size(), 14u);
    for (QString const& result : results(library))
        texts.push_back(result);
    ASSERT_GT(texts.size(), 90u);
    auto font = std::make_unique<QFont>(*static_cast<QFont const*>(library.symbol("_ZN8Settings13countDownFontE")));
    std::vector<std::u16string> expected;
    for (QString const& text : texts)
        expected.push_back(text.toStdU16String());

    library.unload();
    ASSERT_FALSE(isMapped("libEditorSettings"));
    for (std::size_t index = 0; index < texts.size(); ++index) {
        EXPECT_EQ(texts[index].toStdU16String(), expected[index]);
        texts[index].append(QLatin1Char('x'));
    }
    texts.clear();
    EXPECT_EQ(font->family(), QLatin1String("Verdana"));
    font.reset();
    // Qt keeps the patterns that were used last, the library's among them.
    for (int number = 0; number < 1000; ++number)
        EXPECT_TRUE(QRegExp(QString::number(number)).exactMatch(QString::number(number)));
}

} // namespace
