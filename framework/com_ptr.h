// Owner of a COM interface pointer, and the apartment in which the program uses COM.
#pragma once

#include <objbase.h>

#include <memory>

namespace tarrow {

struct ReleaseInterface {
  void operator()(IUnknown* object) const { object->Release(); }
};
template <typename T>
using ComPtr = std::unique_ptr<T, ReleaseInterface>;

// An object of a class, or null when the system does not have it.
template <typename T>
ComPtr<T> CreateComObject(REFCLSID classId) {
  T* object = nullptr;
  ::CoCreateInstance(classId, nullptr, CLSCTX_INPROC_SERVER, __uuidof(T), reinterpret_cast<void**>(&object));
  return ComPtr<T>(object);
}

// Another interface of an object, or null.
template <typename T>
ComPtr<T> QueryInterfaceOf(IUnknown& object) {
  T* other = nullptr;
  object.QueryInterface(__uuidof(T), reinterpret_cast<void**>(&other));
  return ComPtr<T>(other);
}

// COM for the thread that owns the windows, for as long as the object lives.
class ComApartment {
 public:
  ComApartment() : entered_(SUCCEEDED(::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) {}
  ~ComApartment() {
    if (entered_) ::CoUninitialize();
  }
  ComApartment(const ComApartment&) = delete;
  ComApartment& operator=(const ComApartment&) = delete;

 private:
  bool entered_;
};

}  // namespace tarrow
