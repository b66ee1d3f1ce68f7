/// Looking up a value of the configuration file.
