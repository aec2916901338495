#include <gtest/gtest.h>

#include "framework/controls/window.h"
#include "framework/threads/baton.h"
#include "tests/plist/trees.h"
#include "tests/support/fake_platform.h"

namespace bracken {
namespace {

using test::picture;

class Frames : public testing::Test, protected test::EmptyDocument {
  protected:
    void place(int left, int top, int width, int height) {
        window.Left = left;
        window.Top = top;
        window.Width = width;
        window.Height = height;
    }

    baton::Hold hold;
    test::FakePlatform platform;
    Window window;
};

constexpr std::string_view stored =
    "{w:dict{windowName:string=One WindowPos:dict{left:integer=-5000 top:integer=2 "
    "width:integer=1 height:integer=-4}}}";

TEST_F(Frames, AreStoredWhenMissingAndComeBackAsTheyWere) {
    window.Title = "One";
    place(-5000, 2, 1, -4);
    root.GetWindow("w", &window);
    EXPECT_EQ(picture(root), stored);
    EXPECT_EQ(window.Left, -5000);

    Window other;
    root.GetWindow("w", &other);
    EXPECT_EQ(other.Title.get(), "One");
    EXPECT_EQ(other.Left, -5000);
    EXPECT_EQ(other.Top, 2);
    EXPECT_EQ(other.Width, 1);
    EXPECT_EQ(other.Height, -4);
    EXPECT_EQ(picture(root), stored);

    other.Title = "Two";
    other.Left = 9;
    root.SetWindow("w", &other);
    EXPECT_EQ(root.child("w")->GetString("windowName"), "Two");
    EXPECT_EQ(root.child("w")->child("WindowPos")->GetInteger("left"), 9);
    EXPECT_FALSE(root.searched.Value("w"));
}

TEST_F(Frames, MissingPartsReadAsZeroAndAppear) {
    root.child("w")->SetString("windowName", "One");
    place(1, 2, 3, 4);
    root.GetWindow("w", &window);
    EXPECT_EQ(window.Left + window.Top + window.Width + window.Height, 0);
    EXPECT_EQ(picture(*root.child("w")->child("WindowPos")),
              "{left:integer=0 top:integer=0 width:integer=0 height:integer=0}");
}

TEST_F(Frames, RaiseForNoWindow) {
    EXPECT_THROW(root.SetWindow("w", nullptr), NilObjectException);
    EXPECT_THROW(root.GetWindow("w", nullptr), NilObjectException);
}

}  // namespace
}  // namespace bracken
