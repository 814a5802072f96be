// SPDX-License-Identifier: MIT
//
// Where the functions of the host's interfaces stand in their tables. A host that was compiled earlier is called by these
// numbers and not by name, so a function that moves is another function to it.
#include <Settings/IProductInfo.h>
#include <Storage/EmptyStorage.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <new>
#include <string>
#include <utility>
#include <vector>

namespace {

using Storage::EmptyStorage;

// As the C++ ABI of this platform has it: the first half of a pointer to a virtual function is its offset in bytes plus 1.
template <typename Function>
std::ptrdiff_t slot(Function function)
{
    std::ptrdiff_t halves[2] = {};
    static_assert(sizeof function == sizeof halves);
    std::memcpy(halves, &function, sizeof halves);
    return (halves[0] - 1) / static_cast<std::ptrdiff_t>(sizeof(void*));
}

using Slots = std::vector<std::pair<std::string, std::ptrdiff_t>>;

TEST(VtableOrder, OfIProductInfoIsThatOfTheFirstRelease)
{
    EXPECT_EQ(
        (Slots{{"vendorName", slot(&IProductInfo::vendorName)},
               {"productName", slot(&IProductInfo::productName)},
               {"sharedDataFolderName", slot(&IProductInfo::sharedDataFolderName)},
               {"productKind", slot(&IProductInfo::productKind)},
               {"projectFileExtensions", slot(&IProductInfo::projectFileExtensions)}}),
        (Slots{{"vendorName", 2}, {"productName", 3}, {"sharedDataFolderName", 4}, {"productKind", 5}, {"projectFileExtensions", 6}}));
}

TEST(VtableOrder, OfISettingsStorageIsThatOfTheFirstRelease)
{
    EXPECT_EQ((Slots{{"setBool", slot(&ISettingsStorage::setBool)},
                     {"setInt", slot(&ISettingsStorage::setInt)},
                     {"setString", slot(&ISettingsStorage::setString)},
                     {"setBytes", slot(&ISettingsStorage::setBytes)},
                     {"contains", slot(&ISettingsStorage::contains)},
                     {"remove", slot(&ISettingsStorage::remove)},
                     {"getBool", slot(&ISettingsStorage::getBool)},
                     {"getInt", slot(&ISettingsStorage::getInt)},
                     {"getString", slot(&ISettingsStorage::getString)},
                     {"getBytes", slot(&ISettingsStorage::getBytes)}}),
              (Slots{{"setBool", 2},
                     {"setInt", 3},
                     {"setString", 4},
                     {"setBytes", 5},
                     {"contains", 6},
                     {"remove", 7},
                     {"getBool", 8},
                     {"getInt", 9},
                     {"getString", 10},
                     {"getBytes", 11}}));
}

// The first two slots have no name: the destructor of an object that stays allocated, and that of one to be deleted.
template <typename Interface, typename Implementation>
class Watched final : public Implementation {
public:
    static inline int destroyed = 0;
    static inline int deleted = 0;

    ~Watched() override { ++destroyed; }
    static void operator delete(void* object)
    {
        ++deleted;
        ::operator delete(object);
    }

    static void callSlot(Interface* object, std::size_t number)
    {
        using Destructor = void (*)(Interface*);
        Destructor const* table = nullptr;
        std::memcpy(&table, static_cast<void const*>(object), sizeof table);
        table[number](object);
    }
};

template <typename Interface, typename Implementation>
void expectDestructorsFirst()
{
    using Object = Watched<Interface, Implementation>;
    Object::destroyed = Object::deleted = 0;
    void* const place = ::operator new(sizeof(Object));
    Object::callSlot(::new (place) Object, 0);
    EXPECT_EQ(Object::destroyed, 1);
    EXPECT_EQ(Object::deleted, 0);
    ::operator delete(place);
    Object::callSlot(::new Object, 1);
    EXPECT_EQ(Object::destroyed, 2);
    EXPECT_EQ(Object::deleted, 1);
}

struct Product : IProductInfo {
    std::string vendorName() const override { return {}; }
    std::string productName() const override { return {}; }
    std::string sharedDataFolderName() const override { return {}; }
    int productKind() const override { return 0; }
    std::string projectFileExtensions() const override { return {}; }
};

TEST(VtableOrder, BeginsWithTheDestructors)
{
    expectDestructorsFirst<IProductInfo, Product>();
    expectDestructorsFirst<ISettingsStorage, EmptyStorage>();
}

} // namespace
