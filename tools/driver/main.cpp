#include <iostream>

#include "driver.h"

int main(int count, char* arguments[]) {
    return cumeron::RunDriver({arguments + 1, arguments + count}, std::cin, std::cout, std::cerr);
}
