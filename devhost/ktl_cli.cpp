// ktl-cli: loads a command plug-in and drives it the way the appliance's CLI
// does. Not written yet.
int main() { return 1; }
