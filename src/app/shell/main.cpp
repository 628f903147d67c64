// tarnwick: the program with its window.

#include "app/shell/application.h"

int main(int argc, char** argv) {
    return tarnwick::RunApplication(argc, argv);
}
