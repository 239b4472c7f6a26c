#pragma once
#include <QtWidgets>
#include <array>
#include <functional>
#include <memory>
#include <optional>
#include <vector>
