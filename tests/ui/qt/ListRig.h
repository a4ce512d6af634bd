// SPDX-License-Identifier: GPL-3.0-or-later
// A list on the screen over rows that tests write, with an eye on what it paints.
#pragma once

#include "ui/qt/ListWidget.h"
#include "WindowRig.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QScrollBar>

#include <set>

namespace tovik::ui::test {

class PlainRows final : public ListModel, public ListInput {
public:
    std::size_t count = 100;
    std::set<std::size_t> chosen;
    std::optional<std::size_t> cursor;
    bool movable = true;
    std::vector<std::string> calls;

    [[nodiscard]] std::size_t rows() const override { return count; }

    [[nodiscard]] std::string text(std::size_t row) const override {
        return "Row " + std::to_string(row);
    }

    [[nodiscard]] std::optional<std::size_t> current() const override { return cursor; }

    [[nodiscard]] bool selected(std::size_t row) const override { return chosen.contains(row); }

    [[nodiscard]] bool marked(std::size_t /*row*/) const override { return false; }

    void selectRow(std::size_t row, Modifiers modifiers) override {
        if (!modifiers.shift && !modifiers.control) {
            cursor = row;
        }
        calls.push_back("select " + std::to_string(row) + (modifiers.shift ? " shift" : "") +
                        (modifiers.control ? " control" : ""));
    }

    void activateRow(std::size_t row) override {
        calls.push_back("activate " + std::to_string(row));
    }

    void contextRow(std::size_t row) override { calls.push_back("context " + std::to_string(row)); }

    void contextNowhere() override { calls.emplace_back("context"); }

    void holdModifiers(Modifiers modifiers) override {
        calls.push_back(std::string("hold") + (modifiers.shift ? " shift" : "") +
                        (modifiers.control ? " control" : ""));
    }

    [[nodiscard]] bool movesRows() const override { return movable; }

    void moveRow(std::size_t row, std::size_t before) override {
        calls.push_back("move " + std::to_string(row) + " before " + std::to_string(before));
    }

    /// The calls since the last time.
    [[nodiscard]] std::vector<std::string> taken() { return std::exchange(calls, {}); }
};

class ListRig : public testing::Test {
protected:
    static constexpr int kRowsShown = 8;

    PlainRows rows_;
    host::Dispatcher dispatcher_;
    ListWidget list_{rows_, rows_, dispatcher_};
    PaintWatch painted_{*list_.viewport()};

    void SetUp() override {
        list_.resize(200, kRowsShown * list_.rowHeight() + 7);
        list_.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&list_));
        WindowRig::settle();
        static_cast<void>(painted_.take());
    }

    /// What was painted since the last call.
    [[nodiscard]] QRegion painted() {
        WindowRig::settle();
        return painted_.take();
    }

    /// Rows of the view, from the first to the last of them.
    [[nodiscard]] QRegion rowsOfView(int first, int last) const {
        const int pitch = list_.rowHeight();
        return {0, first * pitch, list_.viewport()->width(), (last - first + 1) * pitch};
    }

    [[nodiscard]] QRegion fromRowOfView(int first) const {
        const int top = first * list_.rowHeight();
        return {0, top, list_.viewport()->width(), list_.viewport()->height() - top};
    }

    [[nodiscard]] QPoint middleOf(int rowOfView) const {
        return {20, rowOfView * list_.rowHeight() + list_.rowHeight() / 2};
    }

    void scrollTo(int row) {
        list_.verticalScrollBar()->setValue(row * list_.rowHeight());
        static_cast<void>(painted());
    }

    void press(int rowOfView, Qt::KeyboardModifiers modifiers = {}) {
        QTest::mousePress(list_.viewport(), Qt::LeftButton, modifiers, middleOf(rowOfView));
    }

    /// The pointer with the left button down; told to the list alone.
    void moveTo(QPoint place, Qt::KeyboardModifiers modifiers = {}) {
        QMouseEvent move(QEvent::MouseMove, place, list_.viewport()->mapToGlobal(QPointF(place)),
                         Qt::NoButton, Qt::LeftButton, modifiers);
        QCoreApplication::sendEvent(list_.viewport(), &move);
    }

    void release(QPoint place) { QTest::mouseRelease(list_.viewport(), Qt::LeftButton, {}, place); }
};

} // namespace tovik::ui::test
