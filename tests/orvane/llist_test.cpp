// SPDX-License-Identifier: MIT
#include "host/llist.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <new>
#include <random>
#include <vector>

namespace
{

/// The plain list that CLList must behave like: the cursor is on an item, in the gap before one, or nowhere.
struct Model {
    enum class Cursor { Nowhere, On, Gap };

    std::vector<void*> items;
    Cursor cursor = Cursor::Nowhere;
    std::size_t place = 0;

    void Put(std::size_t at)
    {
        cursor = at < items.size() ? Cursor::On : Cursor::Nowhere;
        place = at;
    }
    void Next()
    {
        if (cursor != Cursor::Nowhere)
            Put(cursor == Cursor::On ? place + 1 : place);
    }
    void Prev()
    {
        if (cursor != Cursor::Nowhere)
            Put(place == 0 ? items.size() : place - 1);
    }
    bool Remove(std::size_t at)
    {
        if (at >= items.size())
            return false;
        items.erase(items.begin() + static_cast<std::ptrdiff_t>(at));
        if (cursor == Cursor::On && place == at)
            cursor = Cursor::Gap;
        else if (cursor != Cursor::Nowhere && at < place)
            --place;
        return true;
    }
    std::size_t Find(void* data) const
    {
        return static_cast<std::size_t>(std::find(items.begin(), items.end(), data) - items.begin());
    }
    void* Get() const { return cursor == Cursor::On ? items[place] : nullptr; }
};

std::vector<void*> ItemsOf(CLList list)
{
    std::vector<void*> items;
    for (list.First(); list.Exists() != 0; list.Next())
        items.push_back(list.Get());
    return items;
}

void ExpectEqual(const CLList& list, const Model& model)
{
    ASSERT_EQ(list.GetNumNodes(), static_cast<long>(model.items.size()));
    ASSERT_EQ(ItemsOf(list), model.items);
    ASSERT_EQ(list.Exists(), model.cursor == Model::Cursor::On ? 1 : 0);
    ASSERT_EQ(list.Get(), model.Get());
    ASSERT_EQ(list.IsLast(), model.cursor == Model::Cursor::On && model.place + 1 == model.items.size());
    for (const bool forwards : {true, false}) {
        CLList steppedList(list);
        Model steppedModel(model);
        forwards ? steppedList.Next() : steppedList.Prev();
        forwards ? steppedModel.Next() : steppedModel.Prev();
        ASSERT_EQ(steppedList.Get(), steppedModel.Get());
        ASSERT_EQ(steppedList.Exists() != 0, steppedModel.cursor == Model::Cursor::On);
    }
}

TEST(List, BehavesLikeAPlainListUnderRandomOperations)
{
    std::array<char, 40> data{}; // so few that many are in the list twice
    for (const unsigned most : {6U, 60U}) {
        std::mt19937 random(most);
        CLList list;
        Model model;
        for (int step = 0; step < 20000; ++step) {
            void* const item = random() % 20 == 0 ? nullptr : &data[random() % data.size()];
            const bool full = model.items.size() >= most;
            switch (random() % (full ? 8 : 12)) {
            case 0:
                list.First();
                model.Put(0);
                break;
            case 1:
                list.Last();
                model.Put(model.items.size() - 1);
                break;
            case 2:
            case 3:
                list.Next();
                model.Next();
                break;
            case 4:
                list.Prev();
                model.Prev();
                break;
            case 5: {
                const bool on = model.cursor == Model::Cursor::On;
                ASSERT_EQ(list.Delete(1), on ? 1 : 0);
                if (on)
                    model.Remove(model.place);
                break;
            }
            case 6:
                ASSERT_EQ(list.DeleteItem(item), model.Remove(model.Find(item)) ? 1 : 0);
                break;
            case 7:
                if (random() % 100 == 0) {
                    list.KillAll();
                    model = Model();
                } else if (random() % 2 == 0) {
                    CLList other;
                    other.InsertLast(&other, 0);
                    other = list;
                    list = other;
                }
                break;
            case 8:
            case 9:
                ASSERT_EQ(list.InsertLast(item, 0), 1);
                model.items.push_back(item);
                break;
            default: {
                const bool absent = model.Find(item) == model.items.size();
                ASSERT_EQ(list.IfNotInsertLast(item), absent ? 1 : 0);
                if (absent)
                    model.items.push_back(item);
            }
            }
            ASSERT_NO_FATAL_FAILURE(ExpectEqual(list, model)) << "step " << step;
        }
    }
}

TEST(List, RecordOfZeroBytesIsEmpty)
{
    alignas(CLList) unsigned char record[sizeof(CLList)];
    std::memset(record, 0, sizeof record);
    auto& list = *std::launder(reinterpret_cast<CLList*>(record));
    EXPECT_EQ(list.Exists(), 0);
    list.Next();
    list.Prev();
    list.Last();
    EXPECT_EQ(list.Delete(1), 0);
    EXPECT_EQ(list.DeleteItem(&list), 0);
    EXPECT_EQ(list.InsertLast(&list, 0), 1);
    list.First();
    EXPECT_EQ(list.Get(), &list);
    list.KillAll();
    EXPECT_EQ(list.GetNumNodes(), 0);
}

TEST(List, NodeAppendedBehindAGapAtTheEndIsTheNextOne)
{
    int a = 0;
    int b = 0;
    CLList list;
    list.InsertLast(&a, 0);
    list.First();
    list.Delete(1);
    list.InsertLast(&b, 0);
    EXPECT_EQ(list.Exists(), 0);
    list.Next();
    EXPECT_EQ(list.Get(), &b);
}

/// What is freed twice, or not at all, the address sanitizer reports.
TEST(List, FreesDataOnceWhenAsked)
{
    for (const int count : {3, 100}) {
        CLList list;
        std::vector<void*> data;
        for (int i = 0; i < count; ++i) {
            data.push_back(::operator new(8));
            list.InsertLast(data.back(), 0);
        }
        // Out of order, so that the nodes with null must be put in order by the list itself.
        std::vector<std::size_t> order(data.size());
        for (std::size_t i = 0; i < order.size(); ++i)
            order[i] = i;
        std::shuffle(order.begin(), order.end(), std::mt19937(7));
        order.resize(order.size() / 2);
        for (const std::size_t wanted : order) {
            list.First();
            for (std::size_t i = 0; i < wanted; ++i)
                list.Next();
            list.DeleteData();
            EXPECT_EQ(list.Get(), nullptr);
            EXPECT_EQ(list.Exists(), 1);
            data[wanted] = nullptr;
        }
        EXPECT_EQ(ItemsOf(list), data);
        while (list.DeleteItem(nullptr) == 1) {
            data.erase(std::find(data.begin(), data.end(), nullptr));
            EXPECT_EQ(ItemsOf(list), data);
        }
        EXPECT_EQ(std::count(data.begin(), data.end(), nullptr), 0);
        list.First();
        list.InsertLast(list.Get(), 0); // twice in the list, freed once
        list.Next();
        EXPECT_EQ(list.Delete(0), 1);
        list.KillAllData();
        EXPECT_EQ(list.GetNumNodes(), 0);
    }
}

TEST(List, ManyNodesComeAndGoInAnyOrder)
{
    std::vector<char> data(20000);
    std::vector<std::size_t> order(data.size());
    for (std::size_t i = 0; i < order.size(); ++i)
        order[i] = i;
    std::mt19937 random(1);
    CLList list;
    for (const bool shuffled : {false, true}) {
        for (char& item : data)
            ASSERT_EQ(list.IfNotInsertLast(&item), 1);
        ASSERT_EQ(list.IfNotInsertLast(&data[123]), 0);
        if (shuffled)
            std::shuffle(order.begin(), order.end(), random);
        for (const std::size_t i : order)
            ASSERT_EQ(list.DeleteItem(&data[i]), 1);
        ASSERT_EQ(list.DeleteItem(&data[0]), 0);
        ASSERT_EQ(list.GetNumNodes(), 0);
    }
}

} // namespace
