// PLACEHOLDER main until the command-line calculator is written.
int main() { return 64; }
