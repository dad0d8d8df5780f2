"""From a fitted model to the two documents."""
