// Nothing of its own: what every test includes is compiled with it, and once.
