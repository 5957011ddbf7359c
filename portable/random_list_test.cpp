// A list in random use against a plain model of it.

#include "portable/testing/list_fixture.h"
#include "support/random_seed.h"

#include <algorithm>
#include <cwchar>
#include <iostream>
#include <random>

namespace ui::mossHarbour {
namespace {

constexpr int column_count = 3;

struct model_row {
    std::vector<std::wstring> texts;
    LPARAM data;
    bool is_selected;
};

class random_list : public list_fixture {
protected:
    void SetUp() override {
        list_fixture::SetUp();
        const auto seed = test_support::random_seed();
        std::cout << "seed " << seed << std::endl;
        random.seed(seed);
        show_list();
        add_columns({L"a", L"b", L"c"});
    }

    int below(int end) { return std::uniform_int_distribution(0, end - 1)(random); }
    int any_row() { return below(static_cast<int>(rows.size())); }
    /// No two are the same, whatever their case.
    std::wstring next_text() {
        const std::wstring text = std::to_wstring(below(1000)) + L"x" + std::to_wstring(++number);
        return below(2) ? text
                        : std::wstring(1, static_cast<wchar_t>((below(2) ? L'A' : L'a') + below(26))) + text;
    }

    void step() {
        const int choice = below(10);
        if (rows.empty() || choice < 3) {
            add();
        } else if (choice == 3) {
            remove();
        } else if (choice == 4) {
            set_text();
        } else if (choice == 5) {
            const int row = any_row();
            list->set_row_data(row, rows[static_cast<std::size_t>(row)].data = ++number);
        } else if (choice == 6) {
            const int row = any_row();
            select(row, rows[static_cast<std::size_t>(row)].is_selected = below(2) == 0);
        } else if (choice == 7) {
            set_order();
        } else if (choice == 8) {
            sort_by_data();
        } else {
            sort_by_text();
        }
    }

    void add() {
        model_row added{std::vector<std::wstring>(column_count), 0, false};
        const int given = 1 + below(column_count);
        const wchar_t* texts[column_count];
        for (int i = 0; i < given; ++i) {
            auto& text = added.texts[static_cast<std::size_t>(i)];
            text = next_text();
            texts[i] = text.c_str();
        }
        const auto count = static_cast<int>(rows.size());
        const int index = below(count + 3);
        const int row = list->add_row(texts, static_cast<std::size_t>(given), index);
        ASSERT_EQ(row, std::min(index, count));
        ASSERT_EQ(list->get_row_data(row), row);
        list->set_row_data(row, added.data = ++number);  // the default is not unique
        select(row, false);  // under Wine a row that comes between selected ones is one of them
        rows.insert(rows.begin() + row, added);
    }
    void remove() {
        const int row = any_row();
        list->remove_row(row);
        rows.erase(rows.begin() + row);
    }
    void set_text() {
        const int row = any_row();
        const int column = below(column_count);
        auto& text = rows[static_cast<std::size_t>(row)].texts[static_cast<std::size_t>(column)];
        text = next_text();
        list->set_cell_text(row, column, text.c_str());
    }
    void set_order() {
        std::shuffle(places.begin(), places.end(), random);
        list->set_column_order(places);
    }
    void sort_by_data() {
        list->sort_rows([](LPARAM a, LPARAM b) { return static_cast<int>(b - a); });
        std::sort(rows.begin(), rows.end(),
                  [](const model_row& a, const model_row& b) { return a.data > b.data; });
    }
    void sort_by_text() {
        for (std::size_t row = 0; row < rows.size(); ++row) {  // empty ones are the same
            for (int column = 0; column < column_count; ++column) {
                auto& text = rows[row].texts[static_cast<std::size_t>(column)];
                if (!text.empty()) continue;
                text = next_text();
                list->set_cell_text(static_cast<int>(row), column, text.c_str());
            }
        }
        const int column = below(column_count);
        NMLISTVIEW notification{};
        notification.hdr = {window, 0, static_cast<UINT>(LVN_COLUMNCLICK)};
        notification.iSubItem = column;
        SendMessageW(panel->get_window_handle(), WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&notification));
        std::sort(rows.begin(), rows.end(),
                  [at = static_cast<std::size_t>(column)](const auto& a, const auto& b) {
                      return _wcsicmp(a.texts[at].c_str(), b.texts[at].c_str()) < 0;
                  });
    }

    void expect_like_model() {
        ASSERT_EQ(row_count(), static_cast<int>(rows.size()));
        std::vector<int> selected;
        for (int row = 0; row < row_count(); ++row) {
            const model_row& expected = rows[static_cast<std::size_t>(row)];
            for (int column = 0; column < column_count; ++column) {
                ASSERT_EQ(cell_text(row, column), expected.texts[static_cast<std::size_t>(column)])
                    << row << " " << column;
            }
            ASSERT_EQ(list->get_row_data(row), expected.data) << row;
            if (expected.is_selected) selected.push_back(row);
        }
        std::vector<int> asked;
        ASSERT_FALSE(list->any_selected_row([&](const int& row) {
            asked.push_back(row);
            return false;
        }));
        ASSERT_EQ(asked, selected);
        ASSERT_EQ(list->get_column_order(), places);
    }

    std::mt19937 random;
    LPARAM number = 0;
    std::vector<model_row> rows;
    std::vector<int> places{0, 1, 2};
};

TEST_F(random_list, is_what_a_plain_model_says) {
    for (int i = 0; i < 600; ++i) {
        step();
        ASSERT_NO_FATAL_FAILURE(expect_like_model()) << "after step " << i;
    }
}

}  // namespace
}  // namespace ui::mossHarbour
