"""Reports of fitted models."""

from .bridge.documents import documents

__all__ = ["documents"]
