#pragma once
#include "tests/support/test_pch.h"
#include <QtWidgets>
