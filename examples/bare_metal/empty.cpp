// What a program takes that does nothing.
int main() {
    return 0;
}
