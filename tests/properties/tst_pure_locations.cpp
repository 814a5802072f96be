// SPDX-License-Identifier: MIT
//
// Locations are pure: as long as product, resources root and environment stay, each gives the same answer again, whatever
// else was asked in between; and none changes what is stored.
#include "Property.h"

#include <Catalogue/Catalogue.h>

#include <support/BoundLibrary.h>

#include <algorithm>

namespace {

class Locations : public BoundLibrary {
protected:
    using Answers = std::vector<std::pair<std::string, QString>>;

    // All of them, each that takes a name also with `name`.
    static Answers ask(std::string const& name, bool backwards)
    {
        std::vector<Catalogue::Location> const& places = Catalogue::locations();
        Answers answers;
        for (std::size_t index = 0; index < places.size(); ++index) {
            Catalogue::Location const& place = places[backwards ? places.size() - 1 - index : index];
            std::vector<std::string> arguments = place.arguments;
            bool const takesAnyName = arguments.size() == 1;
            if (takesAnyName)
                arguments.push_back(name);
            if (arguments.empty())
                arguments.emplace_back();
            for (std::string const& argument : arguments)
                answers.emplace_back(place.name + ("/" + argument), place.path(argument));
        }
        std::sort(answers.begin(), answers.end());
        return answers;
    }
};

TEST_F(Locations, AnswerTheSameAgainWhateverTheProductIsCalled)
{
    ASSERT_EQ(Catalogue::locations().size(), 62u);
    expectForAll(40, [&](std::string const& name) {
        m_product->vendor = (*anyText()).toStdString();
        m_product->product = (*anyText()).toStdString();
        m_product->sharedData = (*anyText()).toStdString();
        m_product->kind = *rc::gen::inRange(0, 3);
        TestKit::ScopedBinding const binding({m_productInfo, m_common, m_productStore, Lumora::ioPath((*anyText()).toStdString())});
        auto const stored = m_productValues->values();
        Answers const first = ask(name, false);
        RC_ASSERT(ask(name, true) == first);
        RC_ASSERT(ask(name, false) == first);
        RC_ASSERT(m_productValues->values() == stored);
        RC_ASSERT(m_commonValues->values().empty());
        calls();
    });
}

} // namespace
