#include <algorithm>

#include "framework/controls/listbox.h"
#include "framework/controls/popup_menu.h"
#include "framework/ref.h"
#include "framework/text/text.h"
#include "plist/plist_dict.h"

namespace bracken {

namespace {

std::string controlKey(const Control& control) {
    return control.name() + "." + Str(control.Index);
}

int32_t upperBound(const std::vector<std::string>& list) {
    return static_cast<int32_t>(list.size()) - 1;
}

void limitBounds(const std::vector<std::string>& list, int32_t& first, int32_t& last) {
    if (upperBound(list) < first) first = 0;
    last = std::min(last, upperBound(list));
}

// IndexOutOfRangeException outside the list.
const std::string& element(const std::vector<std::string>& list, int32_t i) {
    if (i < 0 || i > upperBound(list)) throw IndexOutOfRangeException("Element " + Str(i));
    return list[static_cast<size_t>(i)];
}

void storeRow(plistDict& elements, Listbox& listbox, int row) {
    if (listbox.ColumnCount <= 1) {
        elements.AppendString(listbox.List(row));
        return;
    }
    elements.AppendArray();
    Ref<plistDict> cells = elements.index(row);
    for (int column = 0; column < listbox.ColumnCount; ++column) {
        cells->AppendString(listbox.Cell(row, column));
    }
}

// Returns the text of the row added, "" in a list of several columns.
std::string restoreRow(plistDict& elements, Listbox& listbox, int row) {
    if (listbox.ColumnCount < 2) {
        std::string text = elements.GetString(Str(row));
        listbox.AddRow(text);
        return text;
    }
    listbox.AddRow("");
    int cells = elements.index(row)->count();
    for (int column = 0; column < cells; ++column) {
        if (column >= listbox.ColumnCount) continue;
        listbox.Cell(row, column) = elements.index(row)->GetString(Str(column));
    }
    return "";
}

}  // namespace

Ref<plistDict> plistDict::addListNode(const std::string& key, const std::string& selected) {
    AddChild(key);
    searched.Value(key, false);
    child(key)->SetString("default", selected);
    return child(key)->AddArray("elements") ? child(key)->child("elements") : nullptr;
}

void plistDict::SetListbox(Listbox* listbox) {
    std::string key = controlKey(checked(listbox));
    if (Exists(key)) Remove(key);
    Ref<plistDict> elements = addListNode(key, listbox->Text());
    if (elements == nullptr) return;
    for (int row = 0; row < listbox->ListCount(); ++row) storeRow(*elements, *listbox, row);
}

void plistDict::SetPopup(PopupMenu* popup) {
    std::string key = controlKey(checked(popup));
    if (Exists(key)) Remove(key);
    Ref<plistDict> elements = addListNode(key, popup->Text());
    if (elements == nullptr) return;
    for (int row = 0; row < popup->ListCount(); ++row) elements->AppendString(popup->List(row));
}

void plistDict::GetListbox(Listbox* listbox, bool setDefault) {
    std::string key = controlKey(checked(listbox));
    if (!Exists(key)) SetListbox(listbox);
    std::string selected = child(key)->GetString("default");
    Ref<plistDict> elements = child(key)->child("elements");
    int count = elements->count();
    for (int row = 0; row < count; ++row) {
        std::string text = restoreRow(*elements, *listbox, row);
        if (setDefault && equal(text, selected)) listbox->ListIndex = row;
    }
}

void plistDict::GetPopup(PopupMenu* popup, bool setDefault) {
    std::string key = controlKey(checked(popup));
    if (!Exists(key)) SetPopup(popup);
    std::string selected = child(key)->GetString("default");
    Ref<plistDict> elements = child(key)->child("elements");
    int count = elements->count();
    for (int row = 0; row < count; ++row) {
        std::string text = elements->GetString(Str(row));
        popup->AddRow(text);
        if (setDefault && equal(text, selected)) popup->ListIndex = row;
    }
}

void plistDict::AppendListbox(Listbox* listbox) {
    if (CheckArray()) SetListbox(listbox);
}

void plistDict::AppendPopup(PopupMenu* popup) {
    if (CheckArray()) SetPopup(popup);
}

void plistDict::SetList(std::string_view key, const std::vector<std::string>& list, int32_t first,
                        int32_t last) {
    // The key may refer to a text in the tree, which Remove frees.
    std::string own(key);
    if (Exists(own)) Remove(own);
    limitBounds(list, first, last);
    if (!AddArray(own)) return;
    searched.Value(own, false);
    for (int32_t i = first; i <= last; ++i) child(own)->AppendString(element(list, i));
}

void plistDict::GetList(std::string_view key, std::vector<std::string>& list, int32_t base) {
    std::vector<std::string> read(base == 0 ? 0 : 1);
    int count = child(key)->count();
    for (int i = 0; i < count; ++i) read.push_back(child(key)->GetString(Str(i)));
    list = std::move(read);
}

void plistDict::AppendList(const std::vector<std::string>& list, int32_t first, int32_t last) {
    if (!CheckArray()) return;
    limitBounds(list, first, last);
    AppendArray();
    for (int32_t i = first; i <= last; ++i) child(Str(-1))->AppendString(element(list, i));
}

}  // namespace bracken
