#pragma once
#include <QtCore>
#include <QtSql>

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <memory>
#include <vector>
