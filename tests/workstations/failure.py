class Failure(Exception):
    """What makes it useless to go on with a trial."""
