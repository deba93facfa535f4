#include "program/dll_search.h"

#include <windows.h>

namespace velmoran {

void LoadDllsFromSystemOnly() {
  const FARPROC found = GetProcAddress(GetModuleHandleW(L"kernel32"), "SetDefaultDllDirectories");
  const auto setDirectories = reinterpret_cast<BOOL(WINAPI*)(DWORD)>(reinterpret_cast<void*>(found));
  if (setDirectories != nullptr) setDirectories(LOAD_LIBRARY_SEARCH_SYSTEM32);
}

}  // namespace velmoran
