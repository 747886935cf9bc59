#pragma once
#include "toolkit/avance_trabajo.h"
