#include <gui_objects/AutoPtr.h>
#include <gui_objects/NStrings.h>
#include <gui_objects/UTF16String.h>
#include <messages/catalog.h>
#include <ut/faults.h>
#include <ut/memory.h>
#include <vcos/exceptions.h>
#include <vx/errors.h>

namespace {

std::size_t checkedIndex(int index, std::size_t count) {
  if (index < 0 || static_cast<std::size_t>(index) >= count)
    vxErrMsgId(VORTIL::array::IndexOutOfRange(std::to_string(index), std::to_string(count)));
  return static_cast<std::size_t>(index);
}

}  // namespace

NStrings::NStrings(const NStrings* other) : NStrings(other ? *other : NStrings()) {}

NStrings::NStrings(const vxArray* array) {
  if (!array) return;
  for (const gui_objects::UTF16String& line : gui_objects::createUTF16StringsFromArray(array))
    strings_.push_back(fl::i18n::to_utf8(line.data(), line.size()));
}

NStrings::NStrings(unsigned int count, const char* const* texts) {
  for (unsigned int i = 0; i < count; ++i)
    strings_.emplace_back(texts[i] ? texts[i] : "");
}

void* NStrings::operator new(std::size_t size) {
  void* const storage = utMalloc(size);
  if (!storage) throw vcos::COSOutOfMemoryException();
  return storage;
}

void NStrings::operator delete(void* storage) noexcept {
  utFree(storage);
}

const char* NStrings::operator[](int index) const {
  return strings_[checkedIndex(index, strings_.size())].c_str();
}

void NStrings::setStringAt(int index, const char* text) {
  strings_[checkedIndex(index, strings_.size())] = text ? text : "";
}

vxArray* NStrings::toMatrix() const {
  gui_objects::AutoPtr<vxArray, gui_objects::VxArrayDtor> cells(
      vxCreateCellMatrix(strings_.size(), 1));
  for (std::size_t i = 0; i < strings_.size(); ++i) {
    const fl::ustring text = fl::i18n::to_ustring(strings_[i]);  // NULs are characters as well
    vxSetCell(cells.get(), i, vxCreateString_UTF16(text.data(), text.size()));
  }
  return cells.release();
}
