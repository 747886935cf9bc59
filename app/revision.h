#pragma once
// Fecha de revisión de este programa.

inline constexpr const char* kRevision = "2018/02/21";
