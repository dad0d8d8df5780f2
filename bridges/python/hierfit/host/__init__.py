"""The program's library from Python: runs, their tables and charts, and many of them at once."""
